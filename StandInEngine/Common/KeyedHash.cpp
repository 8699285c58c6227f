#include "Common/KeyedHash.h"

KeyedHash::KeyedHash(ByteView key) {
    crypto_generichash_init(&state_, key.data(), key.size(), sizeof(Identifier::bytes));
}

KeyedHash::~KeyedHash() {
    sodium_memzero(&state_, sizeof state_);
}

void KeyedHash::update(ByteView bytes) {
    crypto_generichash_update(&state_, bytes.data(), bytes.size());
}

Identifier KeyedHash::finish() {
    Identifier result;
    crypto_generichash_final(&state_, result.bytes.data(), result.bytes.size());
    return result;
}

Identifier KeyedHash::of(ByteView key, ByteView bytes) {
    KeyedHash hash(key);
    hash.update(bytes);
    return hash.finish();
}
