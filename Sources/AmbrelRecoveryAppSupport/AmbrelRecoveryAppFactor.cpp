#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"

#include <algorithm>

std::string_view rawValue(AmbrelRecoveryAppFactor factor) {
    return commandFlag(factor).substr(std::string_view("--").size());
}

std::string_view commandFlag(AmbrelRecoveryAppFactor factor) {
    return factor == AmbrelRecoveryAppFactor::recoveryKey ? "--recovery-key" : "--backup-passphrase";
}

std::optional<AmbrelRecoveryAppFactor> recoveryAppFactor(std::string_view wanted) {
    const auto* const found = std::ranges::find(allRecoveryAppFactors, wanted, rawValue);
    return found == allRecoveryAppFactors.end() ? std::nullopt : std::optional(*found);
}
