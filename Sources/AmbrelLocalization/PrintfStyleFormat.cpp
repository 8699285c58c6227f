#include "AmbrelLocalization/PrintfStyleFormat.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <optional>

namespace PrintfStyleFormat {

namespace {

/// Reads the text after a percent sign.
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

    bool takeOneOf(QStringView characters) {
        if (consumed_ == rest_.size() || !characters.contains(rest_[consumed_])) {
            return false;
        }
        ++consumed_;
        return true;
    }

    /// Reads a position such as "2$" and returns it as an index from 0. Reads nothing if there is none.
    std::optional<std::size_t> takePosition() {
        constexpr std::size_t largestPosition = 99;
        const qsizetype start = consumed_;
        std::size_t number = 0;
        while (number <= largestPosition && consumed_ < rest_.size() && isDigit(rest_[consumed_])) {
            number = number * 10 + static_cast<std::size_t>(rest_[consumed_].unicode() - u'0');
            ++consumed_;
        }
        if (number == 0 || number > largestPosition || !take(u"$")) {
            consumed_ = start;
            return std::nullopt;
        }
        return number - 1;
    }

private:
    static bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

    QStringView rest_;
    qsizetype consumed_ = 0;
};

std::optional<Kind> takeConversion(Reader& reader) {
    if (reader.take(u"@")) {
        return Kind::text;
    }
    for (const QStringView modifier : {u"ll", u"l", u"hh", u"h", u"q", u"j", u"z", u"t"}) {
        if (reader.take(modifier)) {
            break;
        }
    }
    return reader.takeOneOf(u"diu") ? std::optional(Kind::integer) : std::nullopt;
}

std::optional<QString> filledIn(const Placeholder& placeholder, std::span<const Value> values,
                                const icu::Locale& locale) {
    if (placeholder.kind == Kind::percentSign) {
        return QStringLiteral("%");
    }
    if (placeholder.value >= values.size()) {
        return std::nullopt;
    }
    const Value& value = values[placeholder.value];
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        return AmbrelStrings::formattedNumber(*number, locale);
    }
    return placeholder.kind == Kind::text ? std::optional(std::get<QString>(value)) : std::nullopt;
}

} // namespace

std::vector<Placeholder> placeholders(QStringView format) {
    std::vector<Placeholder> result;
    std::size_t nextValue = 0;
    qsizetype start = format.indexOf(u'%');
    while (start >= 0) {
        Reader reader(format.sliced(start + 1));
        qsizetype end = start + 1;
        if (reader.take(u"%")) {
            end += reader.consumed();
            result.push_back({start, end - start, Kind::percentSign, 0});
        } else {
            const std::optional<std::size_t> position = reader.takePosition();
            if (const auto kind = takeConversion(reader)) {
                end += reader.consumed();
                result.push_back({start, end - start, *kind, position ? *position : nextValue++});
            }
        }
        start = format.indexOf(u'%', end);
    }
    return result;
}

QString filled(QStringView format, std::span<const Value> values, const icu::Locale& locale) {
    QString result;
    qsizetype copied = 0;
    for (const Placeholder& placeholder : placeholders(format)) {
        result += format.sliced(copied, placeholder.start - copied);
        const QStringView written = format.sliced(placeholder.start, placeholder.length);
        result += filledIn(placeholder, values, locale).value_or(written.toString());
        copied = placeholder.start + placeholder.length;
    }
    return result.append(format.sliced(copied));
}

} // namespace PrintfStyleFormat
