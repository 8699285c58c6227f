#pragma once

/// Wipes, when it ends, what the functions that were called meanwhile left behind on the stack of this thread: copies
/// of a secret that the compiler or a library made in passing. To be declared first in the function that handles a
/// secret. Reaches 128 KiB below that function's own frame.
class SecretStackWiper {
public:
    SecretStackWiper() = default;
    SecretStackWiper(const SecretStackWiper&) = delete;
    SecretStackWiper& operator=(const SecretStackWiper&) = delete;
    ~SecretStackWiper();
};
