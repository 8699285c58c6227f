#pragma once

#include <array>
#include <optional>
#include <string_view>

/// Which of the two secrets unlocks a backup package.
enum class AmbrelRecoveryAppFactor { backupPassphrase, recoveryKey };

/// All factors, in the order in which they are offered.
inline constexpr std::array allRecoveryAppFactors = {AmbrelRecoveryAppFactor::backupPassphrase,
                                                     AmbrelRecoveryAppFactor::recoveryKey};

/// The engine's name for the factor, for example "backup-passphrase".
std::string_view rawValue(AmbrelRecoveryAppFactor factor);

/// The engine's option for the factor, for example "--backup-passphrase".
std::string_view commandFlag(AmbrelRecoveryAppFactor factor);

/// Returns the factor with exactly this raw value, or std::nullopt.
std::optional<AmbrelRecoveryAppFactor> recoveryAppFactor(std::string_view rawValue);
