#pragma once

#include <cstddef>
#include <vector>

/// What the pages of secrets held at the very moment they were given back to the system. The test program is linked so
/// that the code under test gives them back through here (see CMakeLists.txt). Not synchronized.
namespace ReleasedPages {

struct Record {
    const void* address;
    std::size_t length;
    /// Whether every byte was zero.
    bool wiped;
};

void reset();

/// Everything released since the last reset, in order.
const std::vector<Record>& records();

} // namespace ReleasedPages
