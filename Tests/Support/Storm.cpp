#include "Support/Storm.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace {

constexpr int fewRuns = 500;
constexpr std::uint32_t fixedSeed = 20230612;

unsigned long configured(const char* name, unsigned long otherwise) {
    const char* const text = std::getenv(name);
    return text != nullptr && *text != '\0' ? std::stoul(text) : otherwise;
}

} // namespace

Storm::Storm()
    : runs_(static_cast<int>(configured("AMBREL_STORM_RUNS", fewRuns))),
      seed_(static_cast<std::uint32_t>(configured("AMBREL_STORM_SEED", fixedSeed))), generator_(seed_) {
    std::cout << "storm of " << runs_ << " runs, AMBREL_STORM_SEED=" << seed_ << std::endl;
}
