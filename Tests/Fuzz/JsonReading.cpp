#include "Fuzz/JsonReading.h"

#include <QJsonDocument>
#include <QRegularExpression>

#include <algorithm>
#include <string>

JsonReading::JsonReading(std::string_view json) : json_(json) {
    QJsonParseError error;
    const QByteArray bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    object_ = document.object();
    mayBeObject_ = document.isObject() || error.error == QJsonParseError::DeepNesting ||
                   error.error == QJsonParseError::IllegalNumber;
}

bool JsonReading::isPlain() const {
    static const QRegularExpression strings(QStringLiteral("\"[^\"]*\""));
    // Qt takes a number without a digit before its point, too.
    static const QRegularExpression unusualNumber(
        QStringLiteral(R"([0-9.]{17}|(?<![0-9])\.|\.(?![0-9])|[eE][+-]?[0-9]{3})"));
    const bool hasControls =
        std::ranges::any_of(json_, [](char character) { return character >= '\0' && character < ' '; });
    const QString outside = QString::fromUtf8(json_.data(), static_cast<qsizetype>(json_.size())).remove(strings);
    return !hasControls && json_.find('\\') == std::string_view::npos &&
           json_.find("\xEF\xBB\xBF") == std::string_view::npos && !outside.contains(unusualNumber);
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
