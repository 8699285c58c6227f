// Changes JSON texts piece by piece. The parser's library is not instrumented, so single changed bytes would hardly
// ever give another text that it accepts.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned seed);

namespace {

using Pieces = std::vector<std::string_view>;

constexpr std::array<std::string_view, 32> interesting = {
    "{}",
    "[]",
    "[[]]",
    "null",
    "true",
    "false",
    "0",
    "-0",
    "-1",
    "1.0",
    "1e3",
    "0.5",
    "9223372036854775807",
    "9223372036854775808",
    "-9223372036854775808",
    "-9223372036854775809",
    "18446744073709551615",
    "18446744073709551616",
    "1e400",
    "\"\"",
    "\" \"",
    "\"\\u0000\"",
    "\"\\ud83d\\ude00\"",
    "\"\\ud800\"",
    "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"",
    "\"%1$lld of %2$lld\"",
    "\"unresolved-fork\"",
    "\"no-published-head\"",
    "{",
    "]",
    ",",
    ":",
};

constexpr std::string_view punctuation = "{}[]:,";
constexpr std::string_view blanks = " \t\r\n";

std::size_t lengthOfString(std::string_view rest) {
    std::size_t end = 1;
    while (end < rest.size() && rest[end] != '"') {
        end += rest[end] == '\\' ? 2U : 1U;
    }
    return std::min(end + 1, rest.size());
}

std::size_t lengthOfPiece(std::string_view rest) {
    if (rest.front() == '"') {
        return lengthOfString(rest);
    }
    if (punctuation.find(rest.front()) != std::string_view::npos) {
        return 1;
    }
    const bool isBlank = blanks.find(rest.front()) != std::string_view::npos;
    const std::size_t end = isBlank ? rest.find_first_not_of(blanks) : rest.find_first_of("{}[]:,\" \t\r\n");
    return std::max<std::size_t>(1, std::min(end, rest.size()));
}

Pieces piecesOf(std::string_view text) {
    Pieces pieces;
    while (!text.empty()) {
        pieces.push_back(text.substr(0, lengthOfPiece(text)));
        text.remove_prefix(pieces.back().size());
    }
    return pieces;
}

/// The pieces from the one at `start` to the end of its value: a bracket with all that it holds.
std::size_t endOfValue(const Pieces& pieces, std::size_t start) {
    std::size_t depth = 0;
    for (std::size_t index = start; index < pieces.size(); ++index) {
        const char first = pieces[index].front();
        depth += first == '{' || first == '[' ? 1U : 0U;
        depth -= depth > 0 && (first == '}' || first == ']') ? 1U : 0U;
        if (depth == 0) {
            return index + 1;
        }
    }
    return pieces.size();
}

void change(Pieces& pieces, std::minstd_rand& random) {
    const auto anyPlace = [&] { return random() % pieces.size(); };
    const auto offset = [&](std::size_t index) { return pieces.begin() + static_cast<std::ptrdiff_t>(index); };
    const std::size_t start = anyPlace();
    const std::size_t end = endOfValue(pieces, start);
    switch (random() % 6) {
    case 0:
        pieces[start] = interesting[random() % interesting.size()];
        break;
    case 1: {
        pieces.erase(offset(start), offset(end));
        break;
    }
    case 2: {
        const Pieces value(offset(start), offset(end));
        pieces.insert(offset(anyPlace()), value.begin(), value.end());
        break;
    }
    case 3: {
        const Pieces copy = {",", pieces[start]};
        pieces.insert(offset(end), copy.begin(), copy.end());
        break;
    }
    case 4:
        pieces[anyPlace()] = pieces[start];
        break;
    default:
        std::swap(pieces[start], pieces[anyPlace()]);
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned seed) {
    std::minstd_rand random(seed);
    if (size == 0 || random() % 3 == 0) {
        return LLVMFuzzerMutate(data, size, maximumSize);
    }
    const std::string text(reinterpret_cast<const char*>(data), size);
    Pieces pieces = piecesOf(text);
    for (auto rounds = 1 + random() % 3; rounds > 0 && !pieces.empty(); --rounds) {
        change(pieces, random);
    }
    std::string changed;
    for (const std::string_view piece : pieces) {
        changed += piece;
    }
    changed.resize(std::min(changed.size(), maximumSize));
    std::ranges::copy(changed, data);
    return changed.size();
}
