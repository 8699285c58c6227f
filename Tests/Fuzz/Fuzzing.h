#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// One run of a fuzz target on one input, any bytes. Each target defines it; libFuzzer calls it with inputs of its own
/// making, the replay with the files of the target's corpus. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Called once, before the first input, where a target defines it. Always 0.
extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);

namespace Fuzzing {

/// Ends the process with `promise` on standard error unless it is kept: the way in which a target reports a finding.
void expect(bool isKept, const char* promise);

/// The input as text, valid as long as the input is.
inline std::string_view text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace Fuzzing
