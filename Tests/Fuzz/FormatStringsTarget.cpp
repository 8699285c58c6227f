// Formats of the catalogue, and what is done with a filled-in text before it is shown.

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelPseudoLocalization.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/PrintfStyleFormat.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <vector>

namespace {

using Fuzzing::expect;
using namespace PrintfStyleFormat;

/// Reads the text after a percent sign, character by character: a second opinion on what a placeholder is.
class Reader {
public:
    explicit Reader(QStringView rest) : rest_(rest) {}

    /// The number of code units read so far.
    qsizetype consumed() const { return consumed_; }

    bool take(QStringView text) {
        if (!rest_.sliced(consumed_).startsWith(text)) {
            return false;
        }
        consumed_ += text.size();
        return true;
    }

    /// Reads a position such as "2$" and returns it as an index from 0. Reads nothing if there is none.
    std::optional<std::size_t> takePosition() {
        const qsizetype start = consumed_;
        std::size_t number = 0;
        while (number <= 99 && consumed_ < rest_.size() && rest_[consumed_] >= u'0' && rest_[consumed_] <= u'9') {
            number = number * 10 + static_cast<std::size_t>(rest_[consumed_].unicode() - u'0');
            ++consumed_;
        }
        if (number == 0 || number > 99 || !take(u"$")) {
            consumed_ = start;
            return std::nullopt;
        }
        return number - 1;
    }

    std::optional<Kind> takeConversion() {
        if (take(u"@")) {
            return Kind::text;
        }
        for (const QStringView modifier : {u"ll", u"l", u"hh", u"h", u"q", u"j", u"z", u"t"}) {
            if (take(modifier)) {
                break;
            }
        }
        return take(u"d") || take(u"i") || take(u"u") ? std::optional(Kind::integer) : std::nullopt;
    }

private:
    QStringView rest_;
    qsizetype consumed_ = 0;
};

std::vector<Placeholder> found(const QString& format) {
    std::vector<Placeholder> result;
    std::size_t next = 0;
    qsizetype end = 0;
    for (qsizetype start = format.indexOf(u'%'); start >= 0; start = format.indexOf(u'%', end)) {
        Reader reader(QStringView(format).sliced(start + 1));
        end = start + 1;
        if (reader.take(u"%")) {
            end += reader.consumed();
            result.push_back({start, end - start, Kind::percentSign, 0});
            continue;
        }
        const std::optional<std::size_t> position = reader.takePosition();
        if (const auto kind = reader.takeConversion()) {
            end += reader.consumed();
            result.push_back({start, end - start, *kind, position ? *position : next++});
        }
    }
    return result;
}

std::optional<QString> replacement(const Placeholder& placeholder, std::span<const std::int64_t> values,
                                   const icu::Locale& locale) {
    if (placeholder.kind == Kind::percentSign) {
        return QStringLiteral("%");
    }
    if (placeholder.value >= values.size()) {
        return std::nullopt;
    }
    return AmbrelStrings::formattedNumber(values[placeholder.value], locale);
}

void expectFilled(const QString& format, std::span<const std::int64_t> values, const icu::Locale& locale) {
    const std::vector<Placeholder> all = placeholders(format);
    if (format.isValidUtf16()) {
        expect(all == found(format), "the placeholders are those that a reader finds");
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
    const qsizetype first =
        std::max<qsizetype>(QTextBoundaryFinder(QTextBoundaryFinder::Grapheme, text).toNextBoundary(), 0);
    expect(capitalized.endsWith(QStringView(text).sliced(first)), "what follows the first character is unchanged");
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
    const auto second = static_cast<std::int64_t>(input.takeText().size());
    const QString format = textFrom(input.takeRest(), (choice & 1) == 0);
    const std::array<std::int64_t, 3> values = {first, second, choice};
    expectFilled(format, values, locale);
    expectFilled(format, {}, locale);
    expectCapitalized(format, locale);
    expectExpanded(format);
    return 0;
}
