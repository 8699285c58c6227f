#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"

#include <utility>

AmbrelRecoveryCredentialSession::AmbrelRecoveryCredentialSession(AmbrelRecoveryAppFactor factor, SecretBytes credential)
    : factor_(factor), credential_(std::move(credential)) {}

std::optional<SecretBytes> AmbrelRecoveryCredentialSession::credential(AmbrelRecoveryAppFactor factor) const {
    const std::lock_guard lock(mutex_);
    if (!holdsCredential(factor)) {
        return std::nullopt;
    }
    return SecretBytes::copyOf(credential_.bytes());
}

bool AmbrelRecoveryCredentialSession::containsCredential(AmbrelRecoveryAppFactor factor) const {
    const std::lock_guard lock(mutex_);
    return holdsCredential(factor);
}

void AmbrelRecoveryCredentialSession::invalidate() noexcept {
    const std::lock_guard lock(mutex_);
    credential_.wipe();
}

bool AmbrelRecoveryCredentialSession::holdsCredential(AmbrelRecoveryAppFactor factor) const {
    return factor == factor_ && !credential_.empty();
}
