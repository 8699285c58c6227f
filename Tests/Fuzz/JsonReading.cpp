#include "Fuzz/JsonReading.h"

#include <QJsonDocument>

#include <string>

JsonReading::JsonReading(std::string_view json) : json_(json) {
    QJsonParseError error;
    const QByteArray bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    object_ = document.object();
    mayBeObject_ = document.isObject() || error.error == QJsonParseError::DeepNesting;
}

bool JsonReading::isPlain() const {
    constexpr std::size_t longestNumber = 18;
    std::size_t digits = 0;
    bool inText = false;
    for (const char character : json_) {
        const bool isDigit = character >= '0' && character <= '9';
        inText = inText != (character == '"');
        // Qt takes a number without a digit before its point, too.
        const bool isFraction =
            (!inText && character == '.') || (digits > 0 && (character == '.' || character == 'e' || character == 'E'));
        digits = isDigit ? digits + 1 : 0;
        if (character == '\\' || (character >= '\0' && character < ' ') || isFraction || digits > longestNumber) {
            return false;
        }
    }
    return json_.find("\xEF\xBB\xBF") == std::string_view::npos;
}

std::size_t JsonReading::countOf(std::string_view key) const {
    // An escape could spell the key in another way, and Qt drops a byte order mark at the start of a key or a text.
    if (json_.find('\\') != std::string_view::npos || json_.find("\xEF\xBB\xBF") != std::string_view::npos) {
        return 0;
    }
    const std::string quoted = '"' + std::string(key) + '"';
    std::size_t count = 0;
    for (auto place = json_.find(quoted); place != std::string_view::npos; place = json_.find(quoted, place + 1)) {
        ++count;
    }
    return count;
}

bool JsonReading::isUnambiguous(std::string_view key) const {
    return countOf(key) == 1;
}

std::optional<QJsonValue> JsonReading::value(std::string_view key) const {
    const auto found = object_.constFind(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
    if (found == object_.constEnd() || !isUnambiguous(key)) {
        return std::nullopt;
    }
    return *found;
}
