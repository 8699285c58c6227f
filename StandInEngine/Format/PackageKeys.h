#pragma once

#include "Common/SecretBytes.h"
#include "Format/PackageIdentifier.h"

/// An unlocked package's identifier, and the keys derived from its package key, one for each purpose.
struct PackageKeys {
    PackageKeys(const PackageIdentifier& package, const SecretBytes& packageKey);

    PackageIdentifier package;
    SecretBytes recordEncryption;
    SecretBytes commitNaming;
    SecretBytes payloadEncryption;
    SecretBytes payloadNaming;
};
