#pragma once

#include "Common/Identifier.h"

#include <cstdint>
#include <vector>

/// What the history knows of one commit.
struct HistoryCommit {
    Identifier identifier;
    std::vector<Identifier> parents;
    std::int64_t createdAtMilliseconds = 0;
    std::uint64_t writerEpoch = 0;
    std::uint64_t generation = 0;
};
