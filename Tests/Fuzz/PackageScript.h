#pragma once

#include "Fuzz/FuzzInput.h"
#include "StandInEngine/TestPackage.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

/// Makes a package and damages it, step by step as an input says: records that are sealed as they should be, with any
/// content, and files that anything may have happened to.
class PackageScript {
public:
    /// Makes a package with its originals at `path`, where nothing may be.
    explicit PackageScript(const std::filesystem::path& path);

    /// Takes the steps. One that cannot be done, for example on a file that is gone, is passed over.
    void run(FuzzInput& input);

    const TestPackage& package() const { return package_; }

    /// What the package's payload files stand for.
    const std::array<std::string, 3>& originals() const { return originals_; }

    /// How many payload files are still as they were made, in their place.
    std::size_t intactPayloadCount() const;

private:
    void takeStep(FuzzInput& input);
    void addCommit(FuzzInput& input);
    void damage(std::uint8_t kind, const std::filesystem::path& file, FuzzInput& input);
    CommitRecord takeRecord(FuzzInput& input) const;
    CommitRecord::Item takeItem(FuzzInput& input) const;
    std::filesystem::path takeEntry(FuzzInput& input) const;

    std::array<std::string, 3> originals_;
    TestPackage package_;
    std::vector<StoredPayload> payloads_;
    /// The payload files as they were made.
    std::vector<std::string> payloadFiles_;
    std::vector<Identifier> commits_;
};
