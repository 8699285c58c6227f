#include "Fuzz/JsonShape.h"

#include <algorithm>
#include <cmath>

bool JsonShape::fits(const QJsonObject& object, const JsonReading& reading, std::size_t objectCount) const {
    constexpr double largestNumber = 1e15;
    const auto value = [&](std::string_view key) {
        return object.value(QLatin1String(key.data(), static_cast<qsizetype>(key.size())));
    };
    const auto isWhole = [&](std::string_view key) {
        const double number = value(key).toDouble(0.5);
        return number == std::trunc(number) && std::abs(number) < largestNumber;
    };
    const auto all = [&](std::initializer_list<std::string_view> keys, const auto& hasType) {
        return std::ranges::all_of(
            keys, [&](std::string_view key) { return hasType(key) && reading.countOf(key) == objectCount; });
    };
    return all(texts, [&](std::string_view key) { return value(key).isString(); }) && all(numbers, isWhole) &&
           all(unsignedNumbers, [&](std::string_view key) { return isWhole(key) && value(key).toDouble() >= 0; }) &&
           all(truths, [&](std::string_view key) { return value(key).isBool(); });
}
