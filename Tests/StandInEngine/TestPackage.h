#pragma once

#include "Common/UniqueDescriptor.h"
#include "Package/PackageWriter.h"

#include <filesystem>
#include <string>
#include <string_view>

/// A package that a test makes piece by piece, with the cheapest key derivation.
class TestPackage {
public:
    static constexpr std::string_view passphrase = "correct horse";

    /// Makes an empty package: no commit, no head. Throws std::exception, as do all members.
    explicit TestPackage(std::filesystem::path path);

    const std::filesystem::path& path() const { return path_; }
    PackageWriter& writer() { return writer_; }
    /// As a user would type it.
    const std::string& recoveryKey() const { return recoveryKey_; }

    /// Stores an original.
    StoredPayload store(std::string_view content);
    /// Stores an original of zero bytes.
    StoredPayload storeZeros(std::uint64_t byteCount);

    /// An item with one resource, not yet in any commit.
    CommitRecord::Item item(const std::string& name, std::string_view content);

    /// Writes a commit after `parents` and publishes it as a head.
    Identifier publish(CommitRecord record);

    std::filesystem::path payloadPath(const Identifier& payload) const;
    std::filesystem::path commitPath(const Identifier& commit) const;

    /// A record with these items, of the first generation.
    static CommitRecord record(std::vector<CommitRecord::Item> items);

private:
    TestPackage(std::filesystem::path path, const SecretBytes& recoveryKey);

    std::filesystem::path path_;
    std::string recoveryKey_;
    UniqueDescriptor directory_;
    PackageWriter writer_;
};
