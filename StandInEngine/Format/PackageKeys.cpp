#include "Format/PackageKeys.h"

#include <sodium.h>

#include <cstdint>

namespace {

SecretBytes derive(const SecretBytes& packageKey, std::uint64_t number) {
    SecretBytes key(32);
    crypto_kdf_derive_from_key(key.bytes().data(), key.size(), number, "AmbrelSI", packageKey.bytes().data());
    return key;
}

} // namespace

PackageKeys::PackageKeys(const PackageIdentifier& identifier, const SecretBytes& packageKey)
    : package(identifier), recordEncryption(derive(packageKey, 1)), commitNaming(derive(packageKey, 2)),
      payloadEncryption(derive(packageKey, 3)), payloadNaming(derive(packageKey, 4)) {}
