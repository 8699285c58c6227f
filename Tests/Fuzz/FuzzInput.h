#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// Takes an input apart into the values that a target works with. Every input gives values: behind its end all of them
/// are 0 or empty. A view: the input must outlive it.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    bool isAtEnd() const { return rest_.empty(); }

    std::uint8_t takeByte() {
        const auto taken = takeBytes(1);
        return taken.empty() ? std::uint8_t{0} : taken.front();
    }

    /// A number from 0 to `limit` - 1; 0 for a limit of 0.
    std::size_t takeIndex(std::size_t limit) { return limit == 0 ? 0 : takeByte() % limit; }

    /// Eight bytes, little-endian.
    std::uint64_t takeNumber() {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 64; shift += 8) {
            value |= std::uint64_t{takeByte()} << shift;
        }
        return value;
    }

    /// The next `count` bytes, or as many as there are.
    std::span<const std::uint8_t> takeBytes(std::size_t count) {
        const auto taken = rest_.first(std::min(count, rest_.size()));
        rest_ = rest_.subspan(taken.size());
        return taken;
    }

    /// As many bytes as the next byte says.
    std::string_view takeText() {
        const auto taken = takeBytes(takeByte());
        return {reinterpret_cast<const char*>(taken.data()), taken.size()};
    }

    std::string_view takeRest() {
        const auto taken = takeBytes(rest_.size());
        return {reinterpret_cast<const char*>(taken.data()), taken.size()};
    }

private:
    std::span<const std::uint8_t> rest_;
};
