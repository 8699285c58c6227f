#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The engine's report on an export. Strings are UTF-8. Immutable.
struct AmbrelRecoveryExportDocument {
    static constexpr std::string_view expectedSchemaIdentifier = "com.ambrel.recovery.cli-export.v1";

    const std::string schemaIdentifier{};
    /// The engine's name for the outcome; not interpreted.
    const std::string status{};
    const std::string selectedSnapshotCode{};
    const std::int64_t totalItemCount = 0;
    const std::int64_t recoveredItemCount = 0;
    const std::int64_t totalResourceCount = 0;
    const std::int64_t recoveredResourceCount = 0;
    const std::int64_t failedResourceCount = 0;

    /// Decodes `json`, which must be a complete document. Identifiers are not checked and unknown keys are ignored.
    /// Throws DocumentDecodingError. Any thread.
    static AmbrelRecoveryExportDocument decode(std::string_view json);

    /// Whether this is an export report of the supported kind.
    bool hasExpectedIdentifiers() const { return schemaIdentifier == expectedSchemaIdentifier; }

    bool operator==(const AmbrelRecoveryExportDocument&) const = default;
};
