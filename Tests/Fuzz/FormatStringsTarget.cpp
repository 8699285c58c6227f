// Formats of the catalogue, and what is done with a filled-in text before it is shown.

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelPseudoLocalization.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/PrintfStyleFormat.h"
#include "AmbrelLocalization/UserPerceivedCharacters.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"

#include <QRegularExpression>

#include <array>
#include <vector>

namespace {

using Fuzzing::expect;
using namespace PrintfStyleFormat;

Kind kindOf(const QString& written) {
    if (written == QStringLiteral("%%")) {
        return Kind::percentSign;
    }
    return written.endsWith(u'@') ? Kind::text : Kind::integer;
}

/// What a pattern finds in the format: a second opinion.
std::vector<Placeholder> found(const QString& format) {
    static const QRegularExpression pattern(
        QStringLiteral("%(?:%|(?:(0*[1-9][0-9]?)\\$)?(?:@|(?:ll|l|hh|h|q|j|z|t)?[diu]))"));
    std::vector<Placeholder> result;
    std::size_t next = 0;
    QRegularExpressionMatchIterator matches = pattern.globalMatch(format);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const Kind kind = kindOf(match.captured());
        std::size_t value = 0;
        if (kind != Kind::percentSign) {
            value = match.hasCaptured(1) ? match.captured(1).toULong() - 1 : next++;
        }
        result.push_back({match.capturedStart(), match.capturedLength(), kind, value});
    }
    return result;
}

std::optional<QString> replacement(const Placeholder& placeholder, std::span<const Value> values,
                                   const icu::Locale& locale) {
    if (placeholder.kind == Kind::percentSign) {
        return QStringLiteral("%");
    }
    if (placeholder.value >= values.size()) {
        return std::nullopt;
    }
    const Value& value = values[placeholder.value];
    if (std::holds_alternative<std::int64_t>(value)) {
        return AmbrelStrings::formattedNumber(std::get<std::int64_t>(value), locale);
    }
    return placeholder.kind == Kind::text ? std::optional(std::get<QString>(value)) : std::nullopt;
}

void expectFilled(const QString& format, std::span<const Value> values, const icu::Locale& locale) {
    const std::vector<Placeholder> all = placeholders(format);
    if (format.isValidUtf16()) {
        expect(all == found(format), "the placeholders are those that a pattern finds");
    }
    QString expected = format;
    qsizetype limit = format.size();
    for (auto placeholder = all.rbegin(); placeholder != all.rend(); ++placeholder) {
        expect(placeholder->start >= 0 && placeholder->length >= 2 && placeholder->start + placeholder->length <= limit,
               "placeholders lie in the format one after the other");
        limit = placeholder->start;
        if (const auto text = replacement(*placeholder, values, locale)) {
            expected.replace(placeholder->start, placeholder->length, *text);
        }
    }
    expect(filled(format, values, locale) == expected, "every placeholder is filled in and nothing else changes");
}

void expectCapitalized(const QString& text, const icu::Locale& locale) {
    const QString capitalized = AmbrelStrings::sentenceInitialCapitalized(text, locale);
    expect(capitalized.isEmpty() == text.isEmpty(), "only an empty text has no capital");
    expect(!text.isValidUtf16() || capitalized.isValidUtf16(), "a capital is text");
    const qsizetype first = UserPerceivedCharacters(text).next().size();
    expect(capitalized.endsWith(QStringView(text).sliced(first)), "what follows the first character is unchanged");
}

void expectCharacters(const QString& text) {
    UserPerceivedCharacters characters(text);
    QString joined;
    while (!characters.isAtEnd()) {
        const QStringView character = characters.next();
        expect(!character.isEmpty(), "every character has a code unit");
        joined += character;
    }
    expect(joined == text && characters.next().isEmpty(), "the characters together are the text");
}

void expectExpanded(const QString& text) {
    const QString expanded = AmbrelPseudoLocalization::expanded(text, AmbrelStrings::viewerPositionFormat());
    if (text.isEmpty()) {
        expect(expanded.isEmpty(), "an empty text stays empty");
        return;
    }
    expect(expanded.startsWith(QChar(u'\u27E6')) && expanded.endsWith(QChar(u'\u27E7')), "the text is in brackets");
    expect(expanded.size() >= text.size() + 2, "no character is lost");
    expect(expanded.size() <= text.size() + text.size() / 2 + 2, "at most every second character has a mark");
    expect(AmbrelPseudoLocalization::expanded(text, AmbrelStrings::brandDisplayName()) == text,
           "the product's name is not altered");
}

/// Half of the inputs are UTF-8, the other half any code units, so that broken pairs occur.
QString textFrom(std::string_view bytes, bool isUtf8) {
    if (isUtf8) {
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    QString text;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        const auto low = static_cast<unsigned char>(bytes[index]);
        const auto high = static_cast<unsigned char>(bytes[index + 1]);
        text += QChar(low | high << 8);
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const auto languages = AmbrelInterfaceLanguage::selectableLanguages();
    const icu::Locale locale = languages[input.takeIndex(languages.size())].locale();
    const std::uint8_t choice = input.takeByte();
    const auto first = static_cast<std::int64_t>(input.takeNumber());
    const std::string_view second = input.takeText();
    const QString format = textFrom(input.takeRest(), (choice & 1) == 0);
    const std::array<Value, 3> values = {first, QString::fromUtf8(second.data(), static_cast<qsizetype>(second.size())),
                                         std::int64_t{choice}};
    expectFilled(format, values, locale);
    expectFilled(format, {}, locale);
    expectCharacters(format);
    expectCapitalized(format, locale);
    expectExpanded(format);
    return 0;
}
