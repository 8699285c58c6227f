#include "Engine/CredentialInput.h"

#include "Common/DescriptorIO.h"
#include "Common/Failure.h"

#include <algorithm>
#include <optional>
#include <utility>

SecretBytes CredentialInput::read(int descriptor) {
    constexpr std::size_t firstSize = 4096;
    constexpr std::size_t maximumSize = (std::size_t{1} << 20) + 1;
    SecretBytes buffer(firstSize);
    std::size_t filled = 0;
    bool isTooLong = false;
    while (true) {
        const std::optional<std::size_t> count = DescriptorIO::readFully(descriptor, buffer.bytes().subspan(filled));
        if (!count) {
            throw Failure(FailureReason::credentialMissing);
        }
        filled += *count;
        if (filled < buffer.size()) {
            break;
        }
        if (buffer.size() < maximumSize) {
            SecretBytes larger(std::min(buffer.size() * 2, maximumSize));
            std::ranges::copy(buffer.bytes(), larger.bytes().begin());
            buffer = std::move(larger);
        } else {
            isTooLong = true;
            filled = 0;
        }
    }
    if (isTooLong) {
        throw Failure(FailureReason::credentialInvalid, "too long");
    }
    if (filled == 0 || buffer.bytes()[filled - 1] != '\n') {
        throw Failure(FailureReason::credentialMissing);
    }
    buffer.truncate(filled - 1);
    return buffer;
}
