#pragma once

#include <QString>

#include <string_view>

/// The names of files as texts. A name is bytes of the user's choice: it may hold line feeds, and characters that turn
/// the direction of what follows, so that "gpj.exe" reads as "exe.jpg". Any thread.
namespace FileNameText {

/// `name` with every character that would be invisible or act on the text around it replaced by one that shows it:
/// control pictures, and the code point of others in brackets. Bytes that are no UTF-8 give the replacement character.
QString readable(std::string_view name);

inline constexpr QChar firstStrongIsolate(0x2068);
inline constexpr QChar popDirectionalIsolate(0x2069);

/// `text` kept apart from the direction of what stands around it.
QString isolated(const QString& text);

} // namespace FileNameText
