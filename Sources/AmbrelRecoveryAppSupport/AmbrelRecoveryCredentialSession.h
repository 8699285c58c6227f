#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <mutex>
#include <optional>

/// Holds the credential that the user typed for one factor, as bytes, until it is invalidated. Shared between the main
/// thread and the thread of a running operation: all members may be called on any thread.
class AmbrelRecoveryCredentialSession {
public:
    /// Stores `credential` unchanged.
    AmbrelRecoveryCredentialSession(AmbrelRecoveryAppFactor factor, SecretBytes credential);

    AmbrelRecoveryCredentialSession(const AmbrelRecoveryCredentialSession&) = delete;
    AmbrelRecoveryCredentialSession& operator=(const AmbrelRecoveryCredentialSession&) = delete;

    AmbrelRecoveryAppFactor factor() const { return factor_; }

    /// Returns a copy of the credential, which the caller must wipe. Returns std::nullopt if `factor` is not the
    /// session's factor or the held credential is empty. Throws std::bad_alloc.
    std::optional<SecretBytes> credential(AmbrelRecoveryAppFactor factor) const;

    /// Whether credential() would return a credential.
    bool containsCredential(AmbrelRecoveryAppFactor factor) const;

    /// Overwrites the held bytes with zeros and drops them. Idempotent.
    void invalidate() noexcept;

private:
    bool holdsCredential(AmbrelRecoveryAppFactor factor) const;

    const AmbrelRecoveryAppFactor factor_;
    mutable std::mutex mutex_;
    /// Empty after invalidation; wipes itself when the session is destroyed. Guarded by mutex_.
    SecretBytes credential_;
};
