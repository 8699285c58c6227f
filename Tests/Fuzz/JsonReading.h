#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>

#include <cstddef>
#include <optional>
#include <string_view>

/// What Qt's reader makes of a JSON text: a second opinion on what the reader under test took from it.
class JsonReading {
public:
    explicit JsonReading(std::string_view json);

    /// Whether the text is one that Qt reads as an object, or one that is nested deeper than Qt goes or has a number
    /// that Qt does not hold.
    bool mayBeObject() const { return mayBeObject_; }

    /// The object; empty where there is none.
    const QJsonObject& object() const { return object_; }

    /// Whether every JSON reader takes the text in the same way: no escapes, no control characters, no byte order mark,
    /// no number of so many digits, or so large an exponent, that a floating-point number would not tell its value.
    bool isPlain() const;

    /// In how many places this key can stand; 0 for a text that is not plain enough to tell.
    std::size_t countOf(std::string_view key) const;

    /// Whether there is just one place where this key can stand. Where a key stands twice, readers differ.
    bool isUnambiguous(std::string_view key) const;

    /// The value at the top of the object; none where the key is missing or ambiguous.
    std::optional<QJsonValue> value(std::string_view key) const;

private:
    std::string_view json_;
    QJsonObject object_;
    bool mayBeObject_ = false;
};
