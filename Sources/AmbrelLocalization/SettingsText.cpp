#include "AmbrelLocalization/SettingsText.h"

#include <QByteArray>

#include <algorithm>

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

std::string_view trimmed(std::string_view text) {
    text = withoutLeadingBlanks(text);
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Takes the next line off `rest` and gives it without its comment. A line break within quotes or after a backslash
/// belongs to the line; a semicolon outside quotes starts a comment.
std::string_view takeLine(std::string_view& rest) {
    bool inQuotes = false;
    std::size_t end = 0;
    for (; end < rest.size(); ++end) {
        const char character = rest[end];
        if (character == '\\') {
            end += rest.substr(end + 1).starts_with("\r\n") ? 2U : 1U;
        } else if (character == '"') {
            inQuotes = !inQuotes;
        } else if (!inQuotes && (character == '\n' || character == ';')) {
            break;
        }
    }
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(rest.find('\n', line.size()), rest.size() - 1) + 1);
    // Blanks within quotes that the file does not close belong to the value.
    return inQuotes ? withoutLeadingBlanks(line) : trimmed(line);
}

/// Undoes the escapes of one value.
class ValueDecoder {
public:
    explicit ValueDecoder(std::string_view text) : rest_(text) {}

    /// The value's text, or none where the value is a list.
    std::optional<QString> text() {
        while (!rest_.empty()) {
            const char character = take();
            if (character == '"') {
                inQuotes_ = !inQuotes_;
            } else if (character == '\\') {
                takeEscape();
            } else if (character == ',' && !inQuotes_) {
                return std::nullopt;
            } else {
                bytes_.append(character);
            }
        }
        flush();
        return result_;
    }

private:
    char take() {
        const char character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }

    void flush() {
        result_ += QString::fromUtf8(bytes_);
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
        } else if (character == '\r' && rest_.starts_with('\n')) {
            take();
        }
    }

    void takeCodeUnit(unsigned base) {
        flush();
        unsigned unit = 0;
        while (!rest_.empty()) {
            const int digit = digitValue(rest_.front());
            if (digit < 0 || static_cast<unsigned>(digit) >= base) {
                break;
            }
            unit = (unit * base + static_cast<unsigned>(digit)) & 0xFFFFU;
            rest_.remove_prefix(1);
        }
        result_ += QChar(static_cast<char16_t>(unit));
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
    bool inQuotes_ = false;
};

/// A text that starts with "@" is written with the sign doubled; a single one introduces an encoded object.
std::optional<QString> plainText(std::optional<QString> value) {
    if (!value || !value->startsWith(u'@')) {
        return value;
    }
    if (value->startsWith(QStringLiteral("@@"))) {
        return value->mid(1);
    }
    return value->endsWith(u')') ? std::nullopt : value;
}

/// Names are written with every unusual character as %XX or %UXXXX.
QString decodedName(std::string_view name) {
    QString result;
    for (std::size_t index = 0; index < name.size(); ++index) {
        const bool isWide = name.substr(index).starts_with("%U");
        const std::size_t start = index + (isWide ? 2 : 1);
        const std::size_t length = isWide ? 4 : 2;
        bool isCode = false;
        if (name[index] == '%' && start + length <= name.size()) {
            const auto code = QByteArray(name.data() + start, static_cast<qsizetype>(length)).toUShort(&isCode, 16);
            if (isCode) {
                result += QChar(code);
                index = start + length - 1;
            }
        }
        if (!isCode) {
            result += QLatin1Char(name[index]);
        }
    }
    return result;
}

/// What the keys of the section with this header line begin with; none for a header that does not end.
std::optional<QString> sectionPrefix(std::string_view header) {
    if (!header.ends_with(']')) {
        return std::nullopt;
    }
    const std::string_view name = trimmed(header.substr(1, header.size() - 2));
    if (name == "General") {
        return QString();
    }
    return decodedName(name == "%General" ? "General" : name) + u'/';
}

} // namespace

SettingsText SettingsText::decoded(std::string_view bytes) {
    SettingsText result;
    // None while the lines belong to a section whose name is not understood.
    std::optional<QString> section = QString();
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    while (!bytes.empty()) {
        const std::string_view line = takeLine(bytes);
        if (line.starts_with('[')) {
            section = sectionPrefix(line);
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!section || equals == std::string_view::npos) {
            continue;
        }
        const QString key = *section + decodedName(trimmed(line.substr(0, equals)));
        if (const auto text = plainText(ValueDecoder(withoutLeadingBlanks(line.substr(equals + 1))).text())) {
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
