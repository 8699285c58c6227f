#pragma once

#include <array>
#include <optional>
#include <string_view>

/// Which of the two secrets unlocks a backup package.
enum class AmbrelRecoveryAppFactor { backupPassphrase, recoveryKey };

/// Every factor, in the order in which they are offered.
inline constexpr std::array allRecoveryAppFactors = {AmbrelRecoveryAppFactor::backupPassphrase,
                                                     AmbrelRecoveryAppFactor::recoveryKey};

/// The engine's word for the factor, for example "backup-passphrase".
std::string_view rawValue(AmbrelRecoveryAppFactor factor);

/// The engine's option that announces the factor, for example "--backup-passphrase".
std::string_view commandFlag(AmbrelRecoveryAppFactor factor);

/// The factor with exactly this raw value, or none.
std::optional<AmbrelRecoveryAppFactor> recoveryAppFactor(std::string_view rawValue);
