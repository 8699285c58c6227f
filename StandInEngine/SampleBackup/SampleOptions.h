#pragma once

#include "SampleBackup/SampleKind.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

/// The parsed command line of make-sample-backup.
struct SampleOptions {
    std::string picturesPath;
    std::string outputPath;
    SampleKind kind = SampleKind::ordinary;
    bool readsPassphrase = false;
    /// Uses the fast key derivation, for tests.
    bool isFast = false;
    /// The time from which the snapshots count back; the present if there is none.
    std::optional<std::chrono::system_clock::time_point> now;

    /// `arguments` are those after the program's name. Returns std::nullopt if anything is missing, unknown or given
    /// twice.
    static std::optional<SampleOptions> parse(const std::vector<std::string>& arguments);

    static const char* usage();
};
