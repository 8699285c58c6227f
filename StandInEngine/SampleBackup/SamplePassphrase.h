#pragma once

#include "Common/SecretBytes.h"

/// Passphrases for sample backups.
namespace SamplePassphrase {

/// Generates four pronounceable words with 72 random bits, for example "tuvika-losapi-renomu-dafiba".
SecretBytes generate();

} // namespace SamplePassphrase
