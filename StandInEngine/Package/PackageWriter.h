#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Common/SecretBytes.h"
#include "Format/CommitRecord.h"
#include "Format/KeyDerivationCost.h"
#include "Format/PackageHeader.h"
#include "Format/PackageKeys.h"
#include "Package/StoredPayload.h"

#include <cstdint>

/// Writes a package into an empty folder. Used by the sample tool, the self-test and the tests; the engine's inspect
/// and export commands never write to a package.
class PackageWriter {
public:
    /// Writes the header and the key file into the folder open as `directory`, which the caller owns and keeps open.
    /// Throws Failure (outputNotWritten), as do all members.
    PackageWriter(int directory, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                  const KeyDerivationCost& cost, std::uint64_t version = PackageHeader::supportedVersion);

    /// Stores the contents of `source`, a file open for reading, as an original. An original that is already stored is
    /// not stored again.
    StoredPayload addPayload(int source);

    /// Stores a commit without validation, even one that readers will reject. Returns its identifier.
    Identifier addCommit(const CommitRecord& record);
    /// Same for the plaintext of a commit.
    Identifier addCommit(ByteView plaintext);

    /// publishHead() publishes the commit as a head, and withdrawHead() revokes that.
    void publishHead(const Identifier& commit);
    void withdrawHead(const Identifier& commit);

private:
    PackageWriter(int directory, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                  const KeyDerivationCost& cost, const PackageHeader& header, const SecretBytes& packageKey);
    void writeFile(const char* folder, const char* name, ByteView content) const;

    int directory_;
    PackageKeys keys_;
};
