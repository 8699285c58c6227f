#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <algorithm>
#include <array>

namespace {

/// English comes first: it is the fallback.
constexpr std::array<QStringView, 14> languages = {u"en", u"es", u"pt", u"de", u"fr", u"it",      u"ja",
                                                   u"ko", u"ru", u"pl", u"tr", u"ar", u"zh-Hans", u"zh-Hant"};

using Row = std::array<QStringView, languages.size()>;

constexpr std::array<Row, RecoveryAppCopy::textCount> texts = {
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopyTexts.inc"
};
static_assert(std::ranges::none_of(texts,
                                   [](const Row& row) { return std::ranges::any_of(row, &QStringView::isEmpty); }));

} // namespace

QString RecoveryAppCopy::languageIdentifier(const icu::Locale& locale) {
    const QString identifier = QString::fromLatin1(locale.getName()).toLower();
    if (identifier.contains(u"hant")) {
        return QStringLiteral("zh-Hant");
    }
    if (identifier.contains(u"hans")) {
        return QStringLiteral("zh-Hans");
    }
    const QString language = QString::fromLatin1(locale.getLanguage());
    return language.isEmpty() ? QStringLiteral("en") : language;
}

QString RecoveryAppCopy::text(Text text, const icu::Locale& locale) {
    const auto* const language = std::ranges::find(languages, languageIdentifier(locale));
    const std::size_t column = language == languages.end() ? 0 : static_cast<std::size_t>(language - languages.begin());
    return texts.at(static_cast<std::size_t>(text)).at(column).toString();
}

QString RecoveryAppCopy::localized(Text text) {
    return RecoveryAppCopy::text(text, AmbrelStrings::currentFormattingLocale());
}
