#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"

std::string_view rawValue(AmbrelRecoveryAppFactor factor) {
    return commandFlag(factor).substr(std::string_view("--").size());
}

std::string_view commandFlag(AmbrelRecoveryAppFactor factor) {
    return factor == AmbrelRecoveryAppFactor::recoveryKey ? "--recovery-key" : "--backup-passphrase";
}

std::optional<AmbrelRecoveryAppFactor> recoveryAppFactor(std::string_view wanted) {
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        if (rawValue(factor) == wanted) {
            return factor;
        }
    }
    return std::nullopt;
}
