#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <cstddef>
#include <optional>
#include <span>

/// Writes a credential to the standard input of an engine: the bytes, one line feed, and then end of file. Never
/// blocks. Keeps its own copy until it is delivered or destroyed. Not synchronized.
class CredentialPipe {
public:
    enum class Delivery { pending, complete, failed };

    /// Creates a pipe and copies the credential; without a credential, does neither. Throws
    /// AmbrelRecoveryProcessError::launchFailed.
    explicit CredentialPipe(std::optional<std::span<const std::byte>> credential);

    /// The engine's end of the pipe, or a negative number without a credential.
    int readEnd() const { return readEnd_.get(); }

    /// The end to which deliver() writes, or a negative number if no delivery is pending.
    int pendingEnd() const { return writeEnd_.get(); }

    /// Writes as much as the pipe accepts; call it after the launch. Returns pending if that is not everything.
    /// Otherwise wipes the copy and closes the pipe.
    /// Returns complete if everything was written, and without a credential. A credential that fits into the pipe
    /// counts as delivered even if the engine has ended without reading it. Returns failed if the engine has closed its
    /// end before a longer credential was written, or if a system call fails.
    Delivery deliver();

private:
    bool holdsPayload() const;
    Delivery writePayload();

    UniqueDescriptor readEnd_;
    // Destroyed in reverse order: the copy is wiped before the pipe is closed.
    UniqueDescriptor writeEnd_;
    SecretBytes payload_;
    std::size_t written_ = 0;
    Delivery delivery_ = Delivery::complete;
};
