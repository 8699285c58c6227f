#pragma once

#include <sodium.h>

/// The running state of an encryption stream, wiped at the end because a key is part of it.
struct PayloadStreamState {
    PayloadStreamState() = default;
    PayloadStreamState(const PayloadStreamState&) = delete;
    PayloadStreamState& operator=(const PayloadStreamState&) = delete;
    ~PayloadStreamState() { sodium_memzero(&state, sizeof state); }

    crypto_secretstream_xchacha20poly1305_state state{};
};
