#pragma once

#include <cerrno>

/// Makes a system call that reports failure as -1, and repeats it while it is interrupted by a signal.
template<typename Call>
auto retryInterrupted(const Call& call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) {
            return result;
        }
    }
}
