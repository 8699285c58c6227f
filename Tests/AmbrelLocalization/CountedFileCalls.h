#pragma once

#include <cstddef>

/// How often the program asked the system about files, whichever library did it.
struct CountedFileCalls {
    /// stat and its variants.
    std::size_t states = 0;
    /// Everything that opens a file.
    std::size_t openings = 0;

    /// The calls since the program started.
    static CountedFileCalls total();

    friend bool operator==(const CountedFileCalls&, const CountedFileCalls&) = default;
    friend CountedFileCalls operator-(const CountedFileCalls& left, const CountedFileCalls& right) {
        return {left.states - right.states, left.openings - right.openings};
    }
};
