#pragma once

#include "Common/Identifier.h"
#include "Format/CommitRecord.h"
#include "Format/PackageKeys.h"
#include "Package/History.h"
#include "Package/PackageDirectory.h"
#include "Package/PayloadReader.h"

/// A package with a known key: provides its history, commits and payloads, all verified.
class UnlockedPackage {
public:
    /// `directory` must outlive the package.
    UnlockedPackage(const PackageDirectory& directory, PackageKeys keys);

    /// Reads all commits and heads. Throws Failure: integrity, packageUnavailable.
    History readHistory() const;

    /// Reads one commit. Throws Failure: integrity, packageUnavailable.
    CommitRecord readCommit(const Identifier& commit) const;

    PayloadReader payloads() const { return PayloadReader(directory_, keys_); }

private:
    Bytes readCommitPlaintext(const Identifier& commit) const;
    void verifyHead(const Identifier& head) const;

    const PackageDirectory& directory_;
    PackageKeys keys_;
};
