#include "AmbrelLocalization/PrintfStyleFormat.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <QRegularExpression>

namespace PrintfStyleFormat {

std::vector<Placeholder> placeholders(const QString& format) {
    // A percent sign, or a position from 1 to 99 and a conversion, both of which are captured.
    static const QRegularExpression pattern(
        QStringLiteral("%(?:%|(?:0*([1-9][0-9]?)\\$)?(@|(?:ll|l|hh|h|q|j|z|t)?[diu]))"));
    std::vector<Placeholder> result;
    std::size_t nextValue = 0;
    for (const QRegularExpressionMatch& match : pattern.globalMatch(format)) {
        Placeholder placeholder{match.capturedStart(), match.capturedLength()};
        if (match.hasCaptured(2)) {
            placeholder.kind = match.capturedView(2) == u'@' ? Kind::text : Kind::integer;
            placeholder.value = match.hasCaptured(1) ? match.capturedView(1).toULong() - 1 : nextValue++;
        }
        result.push_back(placeholder);
    }
    return result;
}

QString filled(const QString& format, std::span<const std::int64_t> values, const icu::Locale& locale) {
    QString result;
    qsizetype copied = 0;
    for (const Placeholder& placeholder : placeholders(format)) {
        result += QStringView(format).sliced(copied, placeholder.start - copied);
        copied = placeholder.start + placeholder.length;
        if (placeholder.kind == Kind::percentSign) {
            result += u'%';
        } else if (placeholder.value < values.size()) {
            result += AmbrelStrings::formattedNumber(values[placeholder.value], locale);
        } else {
            result += QStringView(format).sliced(placeholder.start, placeholder.length);
        }
    }
    return result.append(QStringView(format).sliced(copied));
}

} // namespace PrintfStyleFormat
