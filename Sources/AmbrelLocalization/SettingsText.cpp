#include "AmbrelLocalization/SettingsText.h"

#include <QByteArray>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

/// A name without the white space around it.
std::string_view trimmed(std::string_view name) {
    constexpr std::string_view space = " \t\n\v\f\r";
    name.remove_prefix(std::min(name.find_first_not_of(space), name.size()));
    return name.substr(0, name.find_last_not_of(space) + 1);
}

struct Line {
    /// Without the blanks before it and without its comment.
    std::string_view text;
    /// Where the first equals sign outside quotes stands; npos where there is none.
    std::size_t equals = std::string_view::npos;
};

/// Takes the next line off `rest`. A line break within quotes or after a backslash belongs to the line; a semicolon
/// outside quotes starts a comment.
Line takeLine(std::string_view& rest) {
    rest = withoutLeadingBlanks(rest);
    Line line;
    bool inQuotes = false;
    std::size_t end = 0;
    for (; end < rest.size(); ++end) {
        const char character = rest[end];
        if (character == '\\') {
            const std::string_view escaped = rest.substr(end + 1);
            end += escaped.starts_with("\r\n") || escaped.starts_with("\n\r") ? 2U : 1U;
        } else if (character == '"') {
            inQuotes = !inQuotes;
        } else if (!inQuotes && character == '=') {
            line.equals = std::min(line.equals, end);
        } else if (!inQuotes && (character == '\n' || character == '\r' || character == ';')) {
            break;
        }
    }
    line.text = rest.substr(0, end);
    rest.remove_prefix(std::min(rest.find_first_of("\r\n", line.text.size()), rest.size()));
    return line;
}

/// Unlike QString::fromUtf8 without dropping a byte order mark at the start: only the one of the file is none of it.
QString textOf(QByteArrayView bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

/// Undoes the escapes of one value.
class ValueDecoder {
public:
    explicit ValueDecoder(std::string_view text) : rest_(text) {}

    /// The value's text, or none where the value is a list.
    std::optional<QString> text() {
        skipBlanks();
        while (!rest_.empty()) {
            const char character = take();
            if (character == '"') {
                takeQuote();
            } else if (character == '\\') {
                takeEscape();
                flush();
                keptLength_ = result_.size();
            } else if (character == ',' && !inQuotes_) {
                return std::nullopt;
            } else {
                bytes_.append(character);
            }
        }
        flush();
        // Blanks at the end belong to a text with quotes or to an escape, and to no other.
        while (!isQuoted_ && result_.size() > keptLength_ && (result_.back() == u' ' || result_.back() == u'\t')) {
            result_.chop(1);
        }
        return result_;
    }

private:
    void takeQuote() {
        isQuoted_ = true;
        inQuotes_ = !inQuotes_;
        if (!inQuotes_) {
            skipBlanks();
        }
    }

    void skipBlanks() { rest_ = withoutLeadingBlanks(rest_); }

    char take() {
        const char character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }

    void flush() {
        result_ += textOf(bytes_);
        bytes_.clear();
    }

    void takeEscape() {
        if (rest_.empty()) {
            return;
        }
        if (rest_.front() >= '0' && rest_.front() <= '7') {
            takeCodeUnit(8);
            return;
        }
        const char character = take();
        constexpr std::string_view names = "abfnrtv\"?'\\";
        constexpr std::string_view meanings = "\a\b\f\n\r\t\v\"?'\\";
        if (character == 'x') {
            takeCodeUnit(16);
        } else if (const std::size_t index = names.find(character); index != std::string_view::npos) {
            bytes_.append(meanings[index]);
        } else if ((character == '\r' && rest_.starts_with('\n')) || (character == '\n' && rest_.starts_with('\r'))) {
            take();
        }
    }

    void takeCodeUnit(unsigned base) {
        flush();
        const std::size_t before = rest_.size();
        unsigned unit = 0;
        while (!rest_.empty()) {
            const int digit = digitValue(rest_.front());
            if (digit < 0 || static_cast<unsigned>(digit) >= base) {
                break;
            }
            unit = (unit * base + static_cast<unsigned>(digit)) & 0xFFFFU;
            rest_.remove_prefix(1);
        }
        if (rest_.size() < before) {
            result_ += QChar(static_cast<char16_t>(unit));
        }
    }

    static int digitValue(char character) {
        if (character >= '0' && character <= '9') {
            return character - '0';
        }
        const char lower = static_cast<char>(character | 0x20);
        return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
    }

    std::string_view rest_;
    QByteArray bytes_;
    QString result_;
    qsizetype keptLength_ = 0;
    bool inQuotes_ = false;
    bool isQuoted_ = false;
};

bool isEncodedObject(const QString& value) {
    static const std::array<QString, 6> beginnings = {
        QStringLiteral("@ByteArray("), QStringLiteral("@Variant("), QStringLiteral("@DateTime("),
        QStringLiteral("@Rect("),      QStringLiteral("@Size("),    QStringLiteral("@Point("),
    };
    return value == QStringLiteral("@Invalid()") ||
           std::ranges::any_of(beginnings, [&value](const QString& beginning) { return value.startsWith(beginning); });
}

/// A text that starts with "@" is written with the sign doubled; a single one may introduce an encoded object.
std::optional<QString> plainText(std::optional<QString> value) {
    if (!value || !value->startsWith(u'@')) {
        return value;
    }
    const QString wrapping = QStringLiteral("@String(");
    if (value->endsWith(u')') && value->startsWith(wrapping)) {
        return value->sliced(wrapping.size()).chopped(1);
    }
    if (value->endsWith(u')') && isEncodedObject(*value)) {
        return std::nullopt;
    }
    return value->startsWith(QStringLiteral("@@")) ? value->sliced(1) : value;
}

/// Names are written with every unusual character as %XX or %UXXXX, and are UTF-8 otherwise. A backslash stands for the
/// slash between a section and a name.
QString decodedName(std::string_view name) {
    QString result;
    while (!name.empty()) {
        const std::size_t plain = std::min(name.find('%'), name.size());
        result += textOf(QByteArrayView(name.data(), static_cast<qsizetype>(plain))).replace(u'\\', u'/');
        name.remove_prefix(plain);
        const bool isWide = name.starts_with("%U");
        const std::string_view digits =
            name.substr(std::min<std::size_t>(isWide ? 2 : 1, name.size())).substr(0, isWide ? 4 : 2);
        bool isCode = false;
        const auto code = QByteArray(digits.data(), static_cast<qsizetype>(digits.size())).toUShort(&isCode, 16);
        if (isCode && digits.size() == (isWide ? 4U : 2U)) {
            result += QChar(code);
            name = name.substr(static_cast<std::size_t>(digits.data() - name.data()) + digits.size());
        } else if (!name.empty()) {
            result += u'%';
            name.remove_prefix(1);
        }
    }
    return result;
}

bool isSameWithoutCase(std::string_view text, std::string_view lowerCase) {
    return std::ranges::equal(text, lowerCase, {}, [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
}

/// What the keys of the section with this header line begin with. A header that does not end is taken as it is.
QString sectionPrefix(std::string_view header) {
    const std::string_view name = trimmed(header.substr(1, header.find(']') - 1));
    if (isSameWithoutCase(name, "general")) {
        return QString();
    }
    return decodedName(isSameWithoutCase(name, "%general") ? name.substr(1) : name) + u'/';
}

} // namespace

SettingsText SettingsText::decoded(std::string_view bytes) {
    SettingsText result;
    QString section;
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    while (!bytes.empty()) {
        const Line line = takeLine(bytes);
        if (line.text.starts_with('[')) {
            section = sectionPrefix(line.text);
            continue;
        }
        if (line.equals == std::string_view::npos) {
            continue;
        }
        const QString key = section + decodedName(trimmed(line.text.substr(0, line.equals)));
        if (const auto text = plainText(ValueDecoder(line.text.substr(line.equals + 1)).text())) {
            result.texts_.insert(key, *text);
        } else {
            result.texts_.remove(key);
        }
    }
    return result;
}

std::optional<QString> SettingsText::text(const QString& key) const {
    const auto found = texts_.constFind(key);
    return found == texts_.constEnd() ? std::nullopt : std::optional(*found);
}
