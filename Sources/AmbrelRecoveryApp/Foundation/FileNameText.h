#pragma once

#include <QString>

#include <string_view>

/// File names as text. A name consists of arbitrary bytes: it may contain line feeds, and characters that reverse the
/// direction of what follows, so that "gpj.exe" reads as "exe.jpg". Any thread.
namespace FileNameText {

/// Returns `name` with every character that is invisible or affects the surrounding text made visible: by its control
/// picture or, if it has none, by its code point in brackets. Invalid UTF-8 becomes U+FFFD.
QString readable(std::string_view name);

inline constexpr QChar firstStrongIsolate(0x2068);
inline constexpr QChar popDirectionalIsolate(0x2069);

/// Returns `text` between directional isolates, so that it and the surrounding text do not affect each other's
/// direction.
QString isolated(const QString& text);

} // namespace FileNameText
