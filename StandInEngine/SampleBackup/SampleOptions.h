#pragma once

#include "SampleBackup/SampleKind.h"

#include <optional>
#include <string>
#include <vector>

/// The command line of make-sample-backup, taken apart.
struct SampleOptions {
    std::string picturesPath;
    std::string outputPath;
    SampleKind kind = SampleKind::ordinary;
    bool readsPassphrase = false;
    /// Hardly any key derivation, for tests.
    bool isFast = false;

    /// `arguments` are those after the program's name. None when anything is missing, unknown or given twice.
    static std::optional<SampleOptions> parse(const std::vector<std::string>& arguments);

    static const char* usage();
};
