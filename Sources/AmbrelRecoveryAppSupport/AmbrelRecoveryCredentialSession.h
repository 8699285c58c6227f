#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <mutex>
#include <optional>

/// The credential that the user typed, as bytes, for one factor, until it is invalidated.
/// Shared between the main thread and the thread of a running operation: every member may be called on any thread.
class AmbrelRecoveryCredentialSession {
public:
    /// Holds `credential` unchanged.
    AmbrelRecoveryCredentialSession(AmbrelRecoveryAppFactor factor, SecretBytes credential);

    AmbrelRecoveryCredentialSession(const AmbrelRecoveryCredentialSession&) = delete;
    AmbrelRecoveryCredentialSession& operator=(const AmbrelRecoveryCredentialSession&) = delete;

    /// Invalidates first, so that the bytes are wiped also where nobody remembered to.
    ~AmbrelRecoveryCredentialSession();

    AmbrelRecoveryAppFactor factor() const { return factor_; }

    /// A copy of the credential for its receiver to keep and wipe. None where `factor` is another one, or where nothing
    /// or nothing but an empty credential is held. Throws std::bad_alloc.
    std::optional<SecretBytes> credential(AmbrelRecoveryAppFactor factor) const;

    /// Whether credential() would give one.
    bool containsCredential(AmbrelRecoveryAppFactor factor) const;

    /// Overwrites the held bytes with zero and drops them. May be called any number of times.
    void invalidate() noexcept;

private:
    bool holdsCredential(AmbrelRecoveryAppFactor factor) const;

    const AmbrelRecoveryAppFactor factor_;
    mutable std::mutex mutex_;
    /// Empty after invalidation. Guarded by mutex_.
    SecretBytes credential_;
};
