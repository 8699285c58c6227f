// The user's languages, as they come from the environment and as language tags.

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/SystemLocale.h"
#include "Fuzz/Fuzzing.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using Fuzzing::expect;

/// An environment variable whose value lies in this program's own memory: setenv() never gives memory back.
class Variable {
public:
    explicit Variable(std::string_view name) : valueStart_(name.size() + 1) {
        std::ranges::copy(name, text_.begin());
        text_[name.size()] = '=';
        expect(::putenv(text_.data()) == 0, "a variable can be set");
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    void set(std::string_view value) {
        const std::size_t length = std::min(value.size(), text_.size() - valueStart_ - 1);
        std::ranges::copy(value.substr(0, length), text_.begin() + static_cast<std::ptrdiff_t>(valueStart_));
        text_[valueStart_ + length] = '\0';
    }

private:
    std::size_t valueStart_;
    std::array<char, 8192> text_{};
};

QString resolved(const QStringList& tags) {
    return AmbrelStrings::resolvedSystemLocaleIdentifier(tags);
}

/// Whether a tag names no language of the catalogue, so that the next one counts.
bool isPassedOver(const QString& tag) {
    return resolved({tag, QStringLiteral("ja")}) == QStringLiteral("ja") &&
           resolved({tag, QStringLiteral("ko")}) == QStringLiteral("ko");
}

/// The answer for a tag of the usual form: language, script, region.
std::optional<QString> expectedFor(const QString& tag) {
    static const QRegularExpression usualForm(QStringLiteral("\\A([a-z]{2})(?:-([A-Z][a-z]{3}))?(?:-([A-Z]{2}))?\\z"));
    const QRegularExpressionMatch match = usualForm.match(tag);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString code = match.captured(1);
    if (code == QStringLiteral("zh")) {
        const QStringList traditional = {QStringLiteral("HK"), QStringLiteral("MO"), QStringLiteral("TW")};
        const bool isTraditional =
            match.captured(2) == QStringLiteral("Hant") || traditional.contains(match.captured(3));
        return isTraditional ? QStringLiteral("zh-Hant") : QStringLiteral("zh-Hans");
    }
    if (code == QStringLiteral("pt")) {
        return QStringLiteral("pt-BR");
    }
    return AmbrelStrings::launchLocaleIdentifiers().contains(code) ? code : QStringLiteral("en");
}

void expectTags(const QStringList& tags) {
    expect(AmbrelStrings::launchLocaleIdentifiers().contains(resolved(tags)),
           "the answer is a language of the catalogue");
    for (const QString& tag : tags) {
        const std::optional<QString> expected = expectedFor(tag);
        expect(!expected || resolved({tag}) == *expected, "a tag of the usual form gives its language");
        const qsizetype codeLength = QString(tag + u'-').replace(u'_', u'-').indexOf(u'-');
        expect(codeLength == 2 || isPassedOver(tag), "a code that has not two letters is passed over");
    }
    const auto first = std::ranges::find_if_not(tags, isPassedOver);
    const QString expected = first == tags.end() ? QStringLiteral("en") : resolved({*first});
    expect(resolved(tags) == expected, "the first tag of a known language decides");
}

void expectName(std::string_view posixName) {
    const std::optional<std::string> tag = SystemLocale::languageTag(posixName);
    const std::string_view base = posixName.substr(0, posixName.find('@'));
    const std::string_view name = base.substr(0, base.find('.'));
    expect(tag.has_value() == (!name.empty() && name.size() <= 100 && name != "C" && name != "POSIX"),
           "every name but C and POSIX gives a tag");
    expect(!tag || tag->find('_') == std::string::npos, "the parts of a tag are joined by hyphens");
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

bool isRegion(std::string_view code) {
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    const auto isCapital = [](char character) { return character >= 'A' && character <= 'Z'; };
    return code.empty() || (code.size() == 2 && std::ranges::all_of(code, isCapital)) ||
           (code.size() == 3 && std::ranges::all_of(code, isDigit));
}

void expectEnvironment(const std::vector<std::string_view>& lines) {
    static std::array<Variable, 5> variables = {Variable("LANGUAGE"), Variable("LC_ALL"), Variable("LC_MESSAGES"),
                                                Variable("LC_TIME"), Variable("LANG")};
    for (std::size_t index = 0; index < variables.size(); ++index) {
        variables[index].set(index < lines.size() ? lines[index] : std::string_view());
    }
    const QStringList preferred = SystemLocale::preferredLanguages();
    expect(!preferred.contains(QString()), "no preferred language is empty");
    expectTags(preferred);
    const std::string region = SystemLocale::region();
    expect(isRegion(region), "a region has a code");
    const AmbrelInterfaceLanguage shown = AmbrelInterfaceLanguage(AmbrelInterfaceLanguage::system).shown();
    expect(shown.localeIdentifier() == resolved(preferred), "the texts are in the preferred language");
    const icu::Locale locale = AmbrelInterfaceLanguage(AmbrelInterfaceLanguage::system).locale();
    expect(locale.getLanguage() == std::string_view(shown.locale().getLanguage()),
           "dates and numbers are in the language of the texts");
    expect(region.empty() || region == locale.getCountry(), "dates and numbers follow the region's conventions");
    expect(!SystemLocale::calendar().empty(), "the region has a calendar");
    const QString number = AmbrelStrings::formattedNumber(std::int64_t{1'234'567}, locale);
    expect(!number.trimmed().isEmpty() && number.isValidUtf16(), "a number can be shown");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first five lines are variables, all of them are tags and names.
    const std::vector<std::string_view> lines = linesOf(Fuzzing::text(data, size));
    QStringList tags;
    for (const std::string_view line : lines) {
        expectName(line);
        tags.append(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
    }
    expectTags(tags);
    expectEnvironment(lines);
    return 0;
}
