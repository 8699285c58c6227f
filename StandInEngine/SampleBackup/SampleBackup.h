#pragma once

#include "Common/SecretBytes.h"
#include "SampleBackup/SampleOptions.h"

#include <functional>

/// Makes sample packages.
namespace SampleBackup {

/// Makes the package that the options ask for, whole or not at all, and calls `announce` as the last thing that can
/// fail before it gets its name. Throws Failure, SampleError, Stopped, and whatever `announce` throws.
void make(const SampleOptions& options, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
          const std::function<void()>& announce);

} // namespace SampleBackup
