#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/IcuText.h"
#include "AmbrelLocalization/PrintfStyleFormat.h"
#include "AmbrelLocalization/UserPerceivedCharacters.h"

#include <array>

namespace AmbrelStrings {

icu::Locale currentFormattingLocale() {
    return currentInterfaceLanguage().locale();
}

QString sentenceInitialCapitalized(const QString& text, const icu::Locale& locale) {
    const QStringView first = UserPerceivedCharacters(text).next();
    icu::UnicodeString capital(first.utf16(), static_cast<std::int32_t>(first.size()));
    return IcuText::toQString(capital.toUpper(locale)).append(QStringView(text).sliced(first.size()));
}

QString viewerPosition(std::int64_t current, std::int64_t total) {
    const std::array<PrintfStyleFormat::Value, 2> values = {current, total};
    return PrintfStyleFormat::filled(localized(viewerPositionFormat()), values, currentFormattingLocale());
}

} // namespace AmbrelStrings
