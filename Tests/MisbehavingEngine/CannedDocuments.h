#pragma once

#include <string>
#include <string_view>

/// The documents that an engine prints, as text.
namespace CannedDocuments {

struct Inspection {
    std::string_view schemaIdentifier = "com.ambrel.recovery.cli-inspection.v1";
    std::string_view formatIdentifier = "com.ambrel.backup.v1";
    /// The factor's word, without dashes.
    std::string unlockedFactor;
    std::string_view branchDisposition = "single-head";
    long snapshotCount = 3;
    /// How many of the newest snapshots are retained tips.
    long retainedTipCount = 1;
};

struct Export {
    std::string_view schemaIdentifier = "com.ambrel.recovery.cli-export.v1";
    std::string snapshotCode;
};

std::string text(const Inspection& inspection);
std::string text(const Export& exported);

} // namespace CannedDocuments
