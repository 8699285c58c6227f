#include "TextFaults.h"

#include "AmbrelLocalization/PrintfStyleFormat.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <utility>

namespace {

using Locales = std::set<std::string>;

/// A pattern that no text of some languages may have.
struct Rule {
    enum class Scope { only, allBut };

    const char* name;
    Scope scope;
    Locales locales;
    QRegularExpression pattern;

    bool isFor(const std::string& locale) const { return locales.contains(locale) == (scope == Scope::only); }
};

QRegularExpression pattern(const char* text) {
    return QRegularExpression(QString::fromUtf8(text), QRegularExpression::UseUnicodePropertiesOption);
}

const std::vector<Rule>& rules() {
    using enum Rule::Scope;
    const Locales chinese = {"zh-Hans", "zh-Hant"};
    const Locales fullWidth = {"ja", "zh-Hans", "zh-Hant"};
    static const std::vector<Rule> all = {
        {"straight quote or apostrophe", allBut, {}, pattern(R"(['"])")},
        {"three dots for an ellipsis", allBut, {}, pattern(R"(\.\.\.)")},
        {"double space or line break", allBut, {}, pattern(R"(\s\s|[\r\n\t])")},
        {"hyphen for a dash", allBut, {}, pattern(" - ")},
        {"exclamation mark", allBut, {}, pattern("[!！¡]")},
        {"percent sign", allBut, {}, pattern("%")},
        {"space before an ellipsis", allBut, {"de"}, pattern(R"(\s…)")},
        {"no no-break space before an ellipsis", only, {"de"}, pattern(R"((?<!\x{A0})…)")},
        {"no no-break space before a mark", only, {"fr"}, pattern(R"((?<!\x{A0})[:;?»])")},
        {"no no-break space after a quotation mark", only, {"fr"}, pattern(R"(«(?!\x{A0}))")},
        {"space before a mark", allBut, {"fr"}, pattern(R"(\s[:;?,.،؛؟](?!ambrel))")},
        {"question mark without its other half", only, {"es"}, pattern(R"((^|\?)[^¿]*\?|¿[^?]*(¿|$))")},
        {"half-width mark", only, fullWidth, pattern(R"([,;?()]|(?<!Inc)\.(?!ambrel))")},
        {"half-width colon", only, chinese, pattern(":")},
        {"colon that is not half-width with a space", only, {"ja"}, pattern(R"(：|:(?! ))")},
        {"full-width mark", allBut, fullWidth, pattern("[，。；：、？「」『』（）]")},
        {"space beside a full-width mark", only, fullWidth,
         pattern("[，。；：、？「」『』（）“”] | [，。；：、？「」『』（）“”]")},
        {"no space between Chinese and Latin", only, chinese,
         pattern(R"([\x{3400}-\x{9FFF}][A-Za-z0-9]|[A-Za-z0-9][\x{3400}-\x{9FFF}])")},
        {"space between Japanese and Latin",
         only,
         {"ja"},
         pattern(R"([\x{3041}-\x{30FF}\x{3400}-\x{9FFF}] [A-Za-z]|[A-Za-z] [\x{3041}-\x{30FF}\x{3400}-\x{9FFF}])")},
        {"digit", only, {"ar"}, pattern("[0-9٠-٩]")},
        {"European mark", only, {"ar"}, pattern("[,;?]")},
        {"Latin letters at the beginning", only, {"ar"}, pattern(R"((^|[.؟؛] )[A-Za-z].*\p{Arabic})")},
        {"Latin letters at the end of a sentence", only, {"ar"}, pattern(R"([A-Za-z][.؟؛])")},
        {"Arabic digit or mark", allBut, {"ar"}, pattern("[٠-٩،؛؟]")},
    };
    return all;
}

/// The opening quotation marks of a language, each with the one that closes it.
const std::map<QChar, QChar>& quotationMarks(const std::string& locale) {
    static const std::map<std::string, std::map<QChar, QChar>> marks = {
        {"en", {{u'“', u'”'}, {u'‘', u'’'}}},
        {"es", {{u'«', u'»'}, {u'“', u'”'}}},
        {"pt-BR", {{u'“', u'”'}, {u'‘', u'’'}}},
        {"de", {{u'„', u'“'}, {u'‚', u'‘'}}},
        {"fr", {{u'«', u'»'}}},
        {"it", {{u'“', u'”'}}},
        {"ja", {{u'「', u'」'}, {u'『', u'』'}}},
        {"ko", {{u'‘', u'’'}, {u'“', u'”'}}},
        {"ru", {{u'«', u'»'}, {u'„', u'“'}}},
        {"pl", {{u'„', u'”'}, {u'«', u'»'}}},
        {"tr", {{u'“', u'”'}}},
        {"ar", {{u'«', u'»'}}},
        {"zh-Hans", {{u'“', u'”'}, {u'‘', u'’'}}},
        {"zh-Hant", {{u'「', u'」'}, {u'『', u'』'}}},
    };
    return marks.at(locale);
}

/// Whether every quotation mark is one of the language and has its other half.
bool hasPairedQuotationMarks(const std::string& locale, const QString& text) {
    const std::map<QChar, QChar>& marks = quotationMarks(locale);
    const QString everyMark = QStringLiteral("“”„‘’‚«»「」『』‹›");
    QString expected;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        if (expected.endsWith(character)) {
            expected.chop(1);
        } else if (const auto opening = marks.find(character); opening != marks.end()) {
            expected.append(opening->second);
        } else if (character == u'’' && index > 0 && text[index - 1].isLetter()) {
            continue; // an apostrophe
        } else if (everyMark.contains(character)) {
            return false;
        }
    }
    return expected.isEmpty();
}

/// Whether placeholders are numbered where there are several, and only there.
bool hasPlaceholdersNumberedAsNeeded(const QString& text) {
    const auto placeholders = PrintfStyleFormat::placeholders(text);
    return std::ranges::all_of(placeholders, [&](const auto& placeholder) {
        const bool isNumbered = text.sliced(placeholder.start, placeholder.length).contains(u'$');
        return isNumbered == (placeholders.size() > 1);
    });
}

QString withPlaceholdersReplaced(const QString& text, const QString& replacement) {
    QString result = text;
    auto placeholders = PrintfStyleFormat::placeholders(text);
    std::ranges::reverse(placeholders);
    for (const auto& placeholder : placeholders) {
        // A percent sign that stands for itself is none that a text may have.
        const bool isValue = placeholder.kind != PrintfStyleFormat::Kind::percentSign;
        result.replace(placeholder.start, placeholder.length, isValue ? replacement : QStringLiteral("%"));
    }
    return result;
}

} // namespace

std::vector<std::string> textFaults(const std::string& locale, const QString& text) {
    std::vector<std::string> faults;
    const QString filledIn = withPlaceholdersReplaced(text, locale == "ar" ? QStringLiteral("س") : QStringLiteral("0"));
    for (const Rule& rule : rules()) {
        if (rule.isFor(locale) && rule.pattern.match(filledIn).hasMatch()) {
            faults.emplace_back(rule.name);
        }
    }
    if (!hasPairedQuotationMarks(locale, text)) {
        faults.emplace_back("quotation marks of another language or without their other half");
    }
    if (!hasPlaceholdersNumberedAsNeeded(text)) {
        faults.emplace_back("placeholders not numbered, or numbered without need");
    }
    const std::set<UScriptCode> own = scriptsOfLocale(locale);
    if (std::ranges::any_of(scripts(text),
                            [&own](UScriptCode script) { return script != USCRIPT_LATIN && !own.contains(script); })) {
        faults.emplace_back("letters of another script");
    }
    return faults;
}

QString withoutPlaceholders(const QString& text) {
    return withPlaceholdersReplaced(text, QString());
}

std::set<UScriptCode> scripts(const QString& text) {
    std::set<UScriptCode> result;
    for (const char32_t codePoint : withoutPlaceholders(text).toStdU32String()) {
        UErrorCode status = U_ZERO_ERROR;
        const UScriptCode script = uscript_getScript(static_cast<UChar32>(codePoint), &status);
        if (script != USCRIPT_COMMON && script != USCRIPT_INHERITED) {
            result.insert(script);
        }
    }
    return result;
}

std::set<UScriptCode> scriptsOfLocale(const std::string& locale) {
    if (locale == "ja") {
        return {USCRIPT_HAN, USCRIPT_HIRAGANA, USCRIPT_KATAKANA};
    }
    if (locale == "ko") {
        return {USCRIPT_HANGUL};
    }
    if (locale == "ru") {
        return {USCRIPT_CYRILLIC};
    }
    if (locale == "ar") {
        return {USCRIPT_ARABIC};
    }
    if (locale.starts_with("zh")) {
        return {USCRIPT_HAN};
    }
    return {USCRIPT_LATIN};
}
