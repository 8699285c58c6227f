#pragma once

#include "Common/SecretBytes.h"

/// Passphrases for sample backups.
namespace SamplePassphrase {

/// A fresh one of four pronounceable words with 72 random bits, for example "tuvika-losapi-renomu-dafiba".
SecretBytes generate();

} // namespace SamplePassphrase
