#pragma once

#include <cstdint>
#include <random>

/// A storm: many runs in an order that looks random and is the same every time.
class Storm {
public:
    /// The number of runs and the seed come from AMBREL_STORM_RUNS and AMBREL_STORM_SEED, or are 500 and a fixed one.
    /// Prints both.
    Storm();

    int runs() const { return runs_; }

    /// A number from 0 to `limit` - 1.
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(generator_); }

    /// True once in so many times.
    bool oneIn(int times) { return below(times) == 0; }

private:
    int runs_;
    std::uint32_t seed_;
    std::mt19937 generator_;
};
