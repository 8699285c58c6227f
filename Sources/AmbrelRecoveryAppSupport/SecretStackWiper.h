#pragma once

/// On destruction, wipes what functions called during its lifetime left on this thread's stack: copies of a secret that
/// the compiler or a library made. Declare it first in a function that handles a secret. Covers 128 KiB below that
/// function's frame.
class SecretStackWiper {
public:
    SecretStackWiper() = default;
    SecretStackWiper(const SecretStackWiper&) = delete;
    SecretStackWiper& operator=(const SecretStackWiper&) = delete;
    ~SecretStackWiper();
};
