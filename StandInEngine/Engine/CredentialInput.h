#pragma once

#include "Common/SecretBytes.h"

/// Reads the credential from the input.
namespace CredentialInput {

/// Reads until the end of the input, so that the writer never gets a broken pipe, and returns all bytes before the
/// final line feed. Throws Failure: credentialMissing if there is no final line feed or reading fails,
/// credentialInvalid if the credential is longer than one mebibyte.
SecretBytes read(int descriptor);

} // namespace CredentialInput
