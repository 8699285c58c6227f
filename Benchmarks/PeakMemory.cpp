#include "PeakMemory.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include <malloc.h>

namespace {

std::int64_t bytes(std::string_view field) {
    std::ifstream status("/proc/self/status");
    std::string name;
    while (status >> name) {
        std::int64_t kibibytes = 0;
        if (name == field && status >> kibibytes) {
            return kibibytes * 1024;
        }
    }
    throw std::runtime_error("the process's memory cannot be read");
}

std::int64_t residentAfterTrimming() {
    ::malloc_trim(0);
    // Sets the peak to what is resident now.
    std::ofstream("/proc/self/clear_refs") << "5" << std::flush;
    return bytes("VmRSS:");
}

} // namespace

PeakMemory::PeakMemory() : start_(residentAfterTrimming()) {}

std::int64_t PeakMemory::growth() const {
    return bytes("VmHWM:") - start_;
}
