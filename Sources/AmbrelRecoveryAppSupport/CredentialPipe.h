#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <cstddef>
#include <optional>
#include <span>

/// Brings a credential to the standard input of an engine: the bytes, one line feed, the end of the input. Never
/// blocks. Holds its own copy until it is delivered or destroyed. Not synchronised.
class CredentialPipe {
public:
    enum class Delivery { pending, complete, failed };

    /// Makes a pipe and a copy of the credential; without a credential there is neither. Throws
    /// AmbrelRecoveryProcessError::launchFailed.
    explicit CredentialPipe(std::optional<std::span<const std::byte>> credential);

    /// The end that the engine reads, or a negative number without a credential.
    int readEnd() const { return readEnd_.get(); }

    /// The end that deliver() writes to, or a negative number where no delivery is pending.
    int pendingEnd() const { return writeEnd_.get(); }

    /// After the launch: leaves the reading to the engine and writes what the pipe takes; pending where that is not
    /// everything. Otherwise wipes the copy and closes the pipe. Complete where the engine can read everything or, for
    /// a credential that the pipe holds, could have done so before it ended, and without a credential; failed where a
    /// longer one finds the engine's end closed, and where the system fails.
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
