#pragma once

#include "Common/Bytes.h"
#include "Common/SecretBytes.h"
#include "Format/KeySlot.h"

#include <optional>

/// Encrypts and decrypts the package key under a key that Argon2id makes of a secret.
namespace KeyWrapping {

/// Wraps `packageKey` with a fresh salt and nonce. `header` is bound to the slot. Throws std::bad_alloc when the
/// memory for the derivation cannot be had.
KeySlot wrap(const SecretBytes& packageKey, Factor factor, const SecretBytes& secret, const KeyDerivationCost& cost,
             ByteView header);

/// The package key, or none when the secret does not fit. Throws std::bad_alloc like wrap().
std::optional<SecretBytes> unwrap(const KeySlot& slot, const SecretBytes& secret, ByteView header);

} // namespace KeyWrapping
