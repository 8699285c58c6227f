#pragma once

#include <cstdint>
#include <string>

/// The result of an export.
struct ExportReport {
    std::string selectedSnapshotCode;
    std::int64_t itemCount = 0;
    std::int64_t resourceCount = 0;

    /// The JSON document, with a trailing line feed.
    std::string document() const;
};
