#pragma once

#include "Common/Bytes.h"
#include "Common/Failure.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <string>

/// Takes a record apart that ByteWriter built. Anything that does not fit throws Failure (integrity).
class ByteReader {
public:
    explicit ByteReader(ByteView bytes) : rest_(bytes) {}

    template<std::integral Number>
    Number number() {
        const ByteView source = raw(sizeof(Number));
        std::uint64_t value = 0;
        for (std::size_t index = sizeof(Number); index-- > 0;) {
            value = value << 8 | source[index];
        }
        return static_cast<Number>(value);
    }

    ByteView raw(std::size_t count) {
        if (count > rest_.size()) {
            throw malformed();
        }
        const ByteView taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

    template<std::size_t size>
    std::array<std::uint8_t, size> array() {
        std::array<std::uint8_t, size> taken{};
        std::ranges::copy(raw(size), taken.begin());
        return taken;
    }

    std::string text() {
        const ByteView taken = raw(number<std::uint16_t>());
        return {taken.begin(), taken.end()};
    }

    /// The number of elements that follow, each of which takes at least `leastSize` bytes. A count that the rest of
    /// the record cannot hold is refused before anything is reserved for it.
    std::size_t count(std::size_t leastSize) {
        const std::size_t elements = number<std::uint32_t>();
        if (elements > rest_.size() / leastSize) {
            throw malformed();
        }
        return elements;
    }

    void expectEnd() const {
        if (!rest_.empty()) {
            throw malformed();
        }
    }

    static Failure malformed() { return Failure(FailureReason::integrity, "a record is malformed"); }

private:
    ByteView rest_;
};
