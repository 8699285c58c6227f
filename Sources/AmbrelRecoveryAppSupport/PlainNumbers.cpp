#include "AmbrelRecoveryAppSupport/PlainNumbers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <utility>

namespace {

constexpr std::string_view anyFraction = "0.5";

/// The parts of a JSON number as it is spelled.
struct Spelling {
    bool isNegative = false;
    std::string_view whole;
    std::string_view fraction;
    std::int64_t exponent = 0;
};

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isPartOfNumber(char character) {
    return isDigit(character) || character == '+' || character == '-' || character == '.' || character == 'e' ||
           character == 'E';
}

bool takeOneOf(std::string_view& rest, std::string_view characters) {
    const bool isThere = !rest.empty() && characters.find(rest.front()) != std::string_view::npos;
    rest.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

template<typename Predicate>
std::string_view takeWhile(std::string_view& rest, const Predicate& predicate) {
    const auto* const end = std::find_if_not(rest.begin(), rest.end(), predicate);
    const std::string_view taken = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(taken.size());
    return taken;
}

/// The value of the digits, or a number that exceeds the length of any text.
std::int64_t exponentOf(std::string_view digits) {
    constexpr std::int64_t beyondEveryText = std::int64_t{1} << 60;
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc() ? std::min(value, beyondEveryText) : beyondEveryText;
}

/// Returns std::nullopt if the token is not a JSON number.
std::optional<Spelling> spellingOf(std::string_view token) {
    Spelling spelling;
    spelling.isNegative = takeOneOf(token, "-");
    spelling.whole = takeWhile(token, isDigit);
    bool isValid = spelling.whole == "0" || (!spelling.whole.empty() && !spelling.whole.starts_with('0'));
    if (takeOneOf(token, ".")) {
        spelling.fraction = takeWhile(token, isDigit);
        isValid = isValid && !spelling.fraction.empty();
    }
    if (takeOneOf(token, "eE")) {
        const bool isNegative = token.starts_with('-');
        takeOneOf(token, "+-");
        const std::string_view digits = takeWhile(token, isDigit);
        spelling.exponent = exponentOf(digits) * (isNegative ? -1 : 1);
        isValid = isValid && !digits.empty();
    }
    return isValid && token.empty() ? std::optional(spelling) : std::nullopt;
}

template<typename Integer>
bool fits(std::string_view number) {
    Integer value{};
    return std::from_chars(number.data(), number.data() + number.size(), value).ec == std::errc();
}

/// Returns the integer without a decimal point and exponent, or `anyFraction` if it is not a 64-bit integer.
std::string plainly(const Spelling& spelling) {
    std::string digits(spelling.whole);
    digits += spelling.fraction;
    digits.erase(0, digits.find_first_not_of('0'));
    if (digits.empty()) {
        return "0";
    }
    const std::size_t significant = digits.find_last_not_of('0') + 1;
    const std::int64_t zeros =
        spelling.exponent - std::ssize(spelling.fraction) + std::ssize(digits) - static_cast<std::int64_t>(significant);
    constexpr std::int64_t mostZeros = 19;
    if (zeros < 0 || zeros > mostZeros) {
        return std::string(anyFraction);
    }
    digits.resize(significant);
    digits.append(static_cast<std::size_t>(zeros), '0');
    if (spelling.isNegative) {
        digits.insert(0, 1, '-');
    }
    const bool isHeld = spelling.isNegative ? fits<std::int64_t>(digits) : fits<std::uint64_t>(digits);
    return isHeld ? digits : std::string(anyFraction);
}

/// Consumes a string with its quotation marks; an unterminated one extends to the end of the text.
std::string_view takeString(std::string_view& rest) {
    std::size_t end = 1;
    while (end < rest.size() && rest[end] != '"') {
        const std::size_t escaped = rest[end] == '\\' ? 1 : 0;
        end += 1 + escaped;
    }
    const std::string_view string = rest.substr(0, end + 1);
    rest.remove_prefix(string.size());
    return string;
}

} // namespace

std::optional<std::string> PlainNumbers::rewritten(std::string_view json) {
    std::string text;
    bool isChanged = false;
    while (!json.empty()) {
        text += takeWhile(json, [](char character) { return character != '"' && !isPartOfNumber(character); });
        if (json.starts_with('"')) {
            text += takeString(json);
            continue;
        }
        const std::string_view token = takeWhile(json, isPartOfNumber);
        const std::optional<Spelling> spelling = spellingOf(token);
        const std::string plain = spelling ? plainly(*spelling) : std::string(token);
        isChanged = isChanged || plain != token;
        text += plain;
    }
    return isChanged ? std::optional(std::move(text)) : std::nullopt;
}
