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

bool JsonReading::isUnambiguous(std::string_view key) const {
    // An escape could spell the key in another way, and Qt drops a byte order mark at the start of a key or a text.
    if (json_.find('\\') != std::string_view::npos || json_.find("\xEF\xBB\xBF") != std::string_view::npos) {
        return false;
    }
    const std::string quoted = '"' + std::string(key) + '"';
    return json_.find(quoted) == json_.rfind(quoted);
}

std::optional<QJsonValue> JsonReading::value(std::string_view key) const {
    const auto found = object_.constFind(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())));
    if (found == object_.constEnd() || !isUnambiguous(key)) {
        return std::nullopt;
    }
    return *found;
}
