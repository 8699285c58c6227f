#pragma once

#include "AmbrelRecoveryAppSupport/SecretBytes.h"
#include "AmbrelRecoveryAppSupport/UniqueDescriptor.h"

#include <cstddef>
#include <optional>
#include <span>

/// Brings a credential to the standard input of an engine: the bytes, one line feed, the end of the input.
/// Holds its own copy until it is delivered or destroyed. Not synchronised.
class CredentialPipe {
public:
    /// Makes a pipe and a copy of the credential; without a credential there is neither. Throws
    /// AmbrelRecoveryProcessError::launchFailed.
    explicit CredentialPipe(std::optional<std::span<const std::byte>> credential);

    /// The end that the engine reads, or a negative number without a credential.
    int readEnd() const { return readEnd_.get(); }

    /// After the launch: leaves the reading to the engine, writes everything, wipes the copy and closes the pipe.
    /// Blocks while the pipe is full. True where the engine can read everything or, for a credential that the pipe
    /// holds, could have done so before it ended; false where a longer one finds the engine's end closed, and where the
    /// system fails. Without a credential there is nothing to do.
    bool deliver();

private:
    bool holdsPayload() const;
    bool writePayload();

    UniqueDescriptor readEnd_;
    // Destroyed in reverse order: the copy is wiped before the pipe is closed.
    UniqueDescriptor writeEnd_;
    SecretBytes payload_;
};
