#pragma once

#include "Common/Identifier.h"

#include <cstdint>
#include <vector>

/// The properties of a commit that matter for the history.
struct HistoryCommit {
    Identifier identifier;
    std::vector<Identifier> parents;
    std::int64_t createdAtMilliseconds = 0;
    std::uint64_t writerEpoch = 0;
    std::uint64_t generation = 0;
};
