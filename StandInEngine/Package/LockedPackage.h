#pragma once

#include "Format/KeyFile.h"
#include "Format/PackageHeader.h"
#include "Package/Credential.h"
#include "Package/PackageDirectory.h"
#include "Package/UnlockedPackage.h"

#include <string>

/// A package that has not been unlocked yet.
class LockedPackage {
public:
    /// Opens the package and reads its header and key file. Throws Failure: packageInvalid, packageUnavailable,
    /// integrity.
    explicit LockedPackage(const std::string& path);

    const PackageDirectory& directory() const { return directory_; }
    std::uint64_t formatVersion() const { return header_.version; }

    /// Unlocks the package; this object must outlive the result. Throws Failure: credentialInvalid,
    /// passphraseDidNotUnlock, recoveryKeyDidNotUnlock; std::bad_alloc.
    UnlockedPackage unlock(const Credential& credential) const;

private:
    PackageDirectory directory_;
    Bytes headerText_;
    PackageHeader header_;
    KeyFile keyFile_;
};
