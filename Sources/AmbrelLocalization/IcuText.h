#pragma once

#include <QString>
#include <QStringView>
#include <unicode/unistr.h>

/// Converts ICU's texts for Qt; both use UTF-16.
namespace IcuText {

inline QString toQString(const icu::UnicodeString& text) {
    return QStringView(text.getBuffer(), text.length()).toString();
}

} // namespace IcuText
