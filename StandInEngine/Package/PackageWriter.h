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

/// Fills an empty folder with a package. Used by the sample tool, the self-test and the tests; the engine's inspect
/// and export never write to a package.
class PackageWriter {
public:
    /// Writes the header and the key file into the folder open as `directory`, which stays the caller's.
    /// Throws Failure (outputNotWritten), as do all members.
    PackageWriter(int directory, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                  const KeyDerivationCost& cost, std::uint64_t version = PackageHeader::supportedVersion);

    /// Stores the original that `source`, a file open for reading, holds. An original that is there already is not
    /// stored again.
    StoredPayload addPayload(int source);

    /// Stores a commit as it is, also one that readers will refuse. Gives its identifier.
    Identifier addCommit(const CommitRecord& record);
    /// The same for the plaintext of a commit.
    Identifier addCommit(ByteView plaintext);

    /// Publishes the commit as a head, or takes that back.
    void publishHead(const Identifier& commit);
    void withdrawHead(const Identifier& commit);

private:
    PackageWriter(int directory, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                  const KeyDerivationCost& cost, const PackageHeader& header, const SecretBytes& packageKey);
    void writeFile(const char* folder, const char* name, ByteView content) const;

    int directory_;
    PackageKeys keys_;
};
