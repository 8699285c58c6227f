#pragma once

#include "Common/Identifier.h"
#include "Format/PackageKeys.h"
#include "Package/StoredPayload.h"

/// Encrypts one original into its payload file, one chunk at a time.
class PayloadWriter {
public:
    /// `directory` is the open folder of the package; `keys` must outlive the writer.
    PayloadWriter(int directory, const PackageKeys& keys) : directory_(directory), keys_(keys) {}

    /// Reads `source` twice: to determine the payload's name, and to encrypt it unless it is already stored. Throws
    /// Failure (outputNotWritten), also if the source cannot be read or changes in the meantime; Stopped.
    StoredPayload write(int source) const;

private:
    StoredPayload name(int source) const;
    void encrypt(int source, int file, const StoredPayload& payload) const;

    int directory_;
    const PackageKeys& keys_;
};
