#pragma once

#include "Common/Bytes.h"
#include "Common/Failure.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <string>

/// Parses a record that was built with ByteWriter. Throws Failure (integrity) for malformed data.
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

    /// Reads the number of elements that follow, each of which takes at least `leastSize` bytes. Throws if the rest of
    /// the record cannot hold them, before memory is reserved.
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
