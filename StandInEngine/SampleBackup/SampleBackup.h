#pragma once

#include "Common/SecretBytes.h"
#include "SampleBackup/SampleOptions.h"

#include <functional>

/// Creates sample packages.
namespace SampleBackup {

/// Creates the package described by the options, completely or not at all. Calling `announce` is the last step that can
/// fail before the package gets its name. Throws Failure, SampleError, Stopped, and whatever `announce` throws.
void make(const SampleOptions& options, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
          const std::function<void()>& announce);

} // namespace SampleBackup
