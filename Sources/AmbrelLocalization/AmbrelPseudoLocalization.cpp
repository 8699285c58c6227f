#include "AmbrelLocalization/AmbrelPseudoLocalization.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <QTextBoundaryFinder>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

constexpr std::u16string_view upperCase = u"ÅƁÇÐËƑĢĦÏĴĶĿṀÑÖÞǪŔŠŢÛṼŴẌŸŽ";
constexpr std::u16string_view lowerCase = u"åƀçðëƒģħïĵķŀṁñöþǫŕšţûṽŵẍÿž";
static_assert(upperCase.size() == 26 && lowerCase.size() == 26);

constexpr char16_t openingBracket = u'\u27E6';
constexpr char16_t closingBracket = u'\u27E7';
constexpr char16_t expansionMark = u'\u02D0';

void appendAccented(QString& result, QStringView character) {
    const char16_t unit = character.size() == 1 ? character.front().unicode() : u'\0';
    if (unit >= u'A' && unit <= u'Z') {
        result += QChar(upperCase[static_cast<std::size_t>(unit - u'A')]);
    } else if (unit >= u'a' && unit <= u'z') {
        result += QChar(lowerCase[static_cast<std::size_t>(unit - u'a')]);
    } else {
        result += character;
    }
}

} // namespace

namespace AmbrelPseudoLocalization {

QString expanded(const QString& text, const LocalizedStringResource& resource) {
    if (resource.key() == AmbrelStrings::brandDisplayName().key() || text.isEmpty()) {
        return text;
    }
    QString result(openingBracket);
    std::int64_t letterCount = 0;
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    for (qsizetype end = boundaries.toNextBoundary(); end > start; end = boundaries.toNextBoundary()) {
        const QStringView character = QStringView(text).sliced(start, end - start);
        appendAccented(result, character);
        if (QChar::isLetter(character.toUcs4().front()) && ++letterCount % 2 == 0) {
            result += QChar(expansionMark);
        }
        start = end;
    }
    return result + QChar(closingBracket);
}

} // namespace AmbrelPseudoLocalization
