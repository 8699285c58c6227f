#pragma once

#include "Common/SecretBytes.h"

/// The credential as it comes in.
namespace CredentialInput {

/// Reads to the end of input, so that whoever writes is never left with a closed pipe, and gives every byte before
/// the final line feed. Throws Failure: credentialMissing without a final line feed or when reading fails,
/// credentialInvalid beyond one mebibyte.
SecretBytes read(int descriptor);

} // namespace CredentialInput
