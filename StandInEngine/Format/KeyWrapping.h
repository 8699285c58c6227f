#pragma once

#include "Common/Bytes.h"
#include "Common/SecretBytes.h"
#include "Format/KeySlot.h"

#include <optional>

/// Encrypts and decrypts the package key with a key that is derived from a secret with Argon2id.
namespace KeyWrapping {

/// Encrypts `packageKey` with a fresh salt and nonce. The slot is bound to `header`. Throws std::bad_alloc if there is
/// not enough memory for the derivation.
KeySlot wrap(const SecretBytes& packageKey, Factor factor, const SecretBytes& secret, const KeyDerivationCost& cost,
             ByteView header);

/// Returns the package key, or std::nullopt if the secret is wrong. Throws std::bad_alloc like wrap().
std::optional<SecretBytes> unwrap(const KeySlot& slot, const SecretBytes& secret, ByteView header);

} // namespace KeyWrapping
