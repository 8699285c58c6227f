#include "AmbrelLocalization/AmbrelStrings.h"

#include "AmbrelLocalization/IcuText.h"
#include "AmbrelLocalization/PrintfStyleFormat.h"
#include "AmbrelLocalization/StringCatalogue.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>

namespace AmbrelStrings {

std::span<const LocalizedStringResource> interfaceResources() {
    static constexpr LocalizedStringResource resources[] = {
#define AMBREL_STRING(member, key) LocalizedStringResource(key),
#include "AmbrelLocalization/CatalogueKeys.inc"
#undef AMBREL_STRING
    };
    return resources;
}

QString localized(const LocalizedStringResource& resource) {
    return StringCatalogue::ofProcess().text(resource.key());
}

QString resolved(const LocalizedStringResource& resource, const std::optional<QString>& localeIdentifier) {
    return StringCatalogue::ofProcess().text(resource.key(), localeIdentifier);
}

icu::Locale currentFormattingLocale() {
    return currentInterfaceLanguage().locale();
}

QString sentenceInitialCapitalized(const QString& text, const icu::Locale& locale) {
    // There is no boundary after the start of an empty text.
    const qsizetype length =
        std::max<qsizetype>(QTextBoundaryFinder(QTextBoundaryFinder::Grapheme, text).toNextBoundary(), 0);
    icu::UnicodeString capital(QStringView(text).utf16(), static_cast<std::int32_t>(length));
    return IcuText::toQString(capital.toUpper(locale)).append(QStringView(text).sliced(length));
}

QString viewerPosition(std::int64_t current, std::int64_t total) {
    const std::array values = {current, total};
    return PrintfStyleFormat::filled(localized(viewerPositionFormat()), values, currentFormattingLocale());
}

} // namespace AmbrelStrings
