#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"

#include <sodium.h>

/// BLAKE2b with a key and a result of 32 bytes, fed piece by piece.
class KeyedHash {
public:
    /// `key` may be empty: then it is a plain checksum.
    explicit KeyedHash(ByteView key);
    KeyedHash(const KeyedHash&) = delete;
    KeyedHash& operator=(const KeyedHash&) = delete;
    ~KeyedHash();

    void update(ByteView bytes);
    /// The result. Nothing may be fed afterwards.
    Identifier finish();

    static Identifier of(ByteView key, ByteView bytes);

private:
    crypto_generichash_state state_;
};
