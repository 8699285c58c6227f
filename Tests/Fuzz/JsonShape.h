#pragma once

#include "Fuzz/JsonReading.h"

#include <QJsonObject>

#include <initializer_list>
#include <string_view>

/// The members that an object of an engine's document must have, as Qt reads them.
struct JsonShape {
    std::initializer_list<std::string_view> texts;
    std::initializer_list<std::string_view> numbers;
    std::initializer_list<std::string_view> unsignedNumbers;
    std::initializer_list<std::string_view> truths;

    /// Whether `object` has them all, with values of the right type, and whether none of them can stand twice in an
    /// object: there are `objectCount` objects of this shape in the text.
    bool fits(const QJsonObject& object, const JsonReading& reading, std::size_t objectCount) const;
};
