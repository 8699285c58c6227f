#include "Package/LockedPackage.h"

#include "Common/Failure.h"
#include "Format/KeyWrapping.h"
#include "Format/PackageLayout.h"
#include "Format/RecoveryKey.h"

#include <optional>
#include <utility>

namespace {

Bytes readHeader(const PackageDirectory& directory) {
    const PackageFile file = directory.openFile(PackageLayout::headerFile);
    if (file.state == PackageFile::State::missing || file.state == PackageFile::State::irregular ||
        file.byteCount > PackageLayout::maximumHeaderByteCount) {
        throw Failure(FailureReason::packageInvalid, "no header");
    }
    return PackageDirectory::contentOf(file, PackageLayout::maximumHeaderByteCount);
}

Bytes readKeyFile(const PackageDirectory& directory) {
    constexpr std::size_t maximumByteCount = 4096;
    return PackageDirectory::contentOf(directory.openFile(PackageLayout::keyFile), maximumByteCount);
}

std::optional<SecretBytes> secretOf(const Credential& credential) {
    if (credential.factor == Factor::recoveryKey) {
        return RecoveryKey::parse(credential.typed);
    }
    if (credential.typed.size() == 0) {
        return std::nullopt;
    }
    return SecretBytes::copyOf(credential.typed.bytes());
}

} // namespace

LockedPackage::LockedPackage(const std::string& path)
    : directory_(path), headerText_(readHeader(directory_)), header_(PackageHeader::decode(headerText_)),
      keyFile_(KeyFile::decode(readKeyFile(directory_), headerText_)) {}

UnlockedPackage LockedPackage::unlock(const Credential& credential) const {
    const std::optional<SecretBytes> secret = secretOf(credential);
    if (!secret) {
        throw Failure(FailureReason::credentialInvalid);
    }
    const std::optional<SecretBytes> packageKey =
        KeyWrapping::unwrap(keyFile_.slot(credential.factor), *secret, headerText_);
    if (!packageKey) {
        throw Failure(credential.factor == Factor::recoveryKey ? FailureReason::recoveryKeyDidNotUnlock
                                                               : FailureReason::passphraseDidNotUnlock);
    }
    return UnlockedPackage(directory_, PackageKeys(header_.package, *packageKey));
}
