#pragma once

#include <cstdint>

/// Which of the two secrets unlocks a package. The values are those used in the key file.
enum class Factor : std::uint8_t {
    backupPassphrase = 1,
    recoveryKey = 2,
};
