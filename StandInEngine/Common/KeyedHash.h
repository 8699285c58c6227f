#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"

#include <sodium.h>

/// BLAKE2b with an optional key and a 32-byte result, computed incrementally.
class KeyedHash {
public:
    /// Without a key (`key` is empty), the result is a plain checksum.
    explicit KeyedHash(ByteView key);
    KeyedHash(const KeyedHash&) = delete;
    KeyedHash& operator=(const KeyedHash&) = delete;
    ~KeyedHash();

    void update(ByteView bytes);
    /// Returns the result. Do not call update() afterwards.
    Identifier finish();

    static Identifier of(ByteView key, ByteView bytes);

private:
    crypto_generichash_state state_;
};
