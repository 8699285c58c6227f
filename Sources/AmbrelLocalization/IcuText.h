#pragma once

#include <QString>
#include <QStringView>
#include <unicode/unistr.h>

#include <cstdint>

/// Converts texts between Qt and ICU, which both use UTF-16. Texts must be shorter than 2^31 code units.
namespace IcuText {

inline QString toQString(const icu::UnicodeString& text) {
    return QStringView(text.getBuffer(), text.length()).toString();
}

/// Refers to `text` without copying it: `text` must outlive the result and stay unchanged.
inline icu::UnicodeString view(QStringView text) {
    return icu::UnicodeString(false, text.utf16(), static_cast<std::int32_t>(text.size()));
}

} // namespace IcuText
