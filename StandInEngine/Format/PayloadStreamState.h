#pragma once

#include <sodium.h>

/// The state of an encryption stream. Wiped on destruction because it contains a key.
struct PayloadStreamState {
    PayloadStreamState() = default;
    PayloadStreamState(const PayloadStreamState&) = delete;
    PayloadStreamState& operator=(const PayloadStreamState&) = delete;
    ~PayloadStreamState() { sodium_memzero(&state, sizeof state); }

    crypto_secretstream_xchacha20poly1305_state state{};
};
