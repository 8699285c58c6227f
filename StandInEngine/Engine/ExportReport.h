#pragma once

#include <cstdint>
#include <string>

/// What an export has written.
struct ExportReport {
    std::string selectedSnapshotCode;
    std::int64_t itemCount = 0;
    std::int64_t resourceCount = 0;

    /// The JSON document, with a line feed at its end.
    std::string document() const;
};
