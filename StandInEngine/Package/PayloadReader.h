#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Format/PackageKeys.h"
#include "Package/PackageDirectory.h"
#include "Package/PayloadEvidence.h"

#include <functional>

/// Reads and verifies payload files, one chunk at a time.
class PayloadReader {
public:
    /// Receives one decrypted and authenticated chunk of the original.
    using Consumer = std::function<void(ByteView)>;

    /// Both must outlive the reader.
    PayloadReader(const PackageDirectory& directory, const PackageKeys& keys) : directory_(directory), keys_(keys) {}

    /// Reads the whole payload. The chunks passed to `consume` are the original only if the result is `matching`.
    /// Throws only what `consume` throws, and std::bad_alloc.
    PayloadEvidence read(const Identifier& payload, const Consumer& consume) const;

private:
    PayloadState readStream(int descriptor, const Identifier& payload, const Consumer& consume,
                            std::uint64_t& plaintextByteCount) const;

    const PackageDirectory& directory_;
    const PackageKeys& keys_;
};
