#include "Format/KeyWrapping.h"

#include "Common/ByteWriter.h"

#include <sodium.h>

#include <new>

namespace {

SecretBytes deriveKey(const KeySlot& slot, const SecretBytes& secret) {
    SecretBytes key(crypto_aead_xchacha20poly1305_ietf_KEYBYTES);
    static_assert(sizeof slot.salt == crypto_pwhash_argon2id_SALTBYTES);
    const int result =
        crypto_pwhash_argon2id(key.bytes().data(), key.size(), reinterpret_cast<const char*>(secret.bytes().data()),
                               secret.size(), slot.salt.data(), slot.cost.passes,
                               std::size_t{slot.cost.memoryKibibytes} * 1024, crypto_pwhash_argon2id_ALG_ARGON2ID13);
    if (result != 0) {
        throw std::bad_alloc();
    }
    return key;
}

Bytes associatedData(const KeySlot& slot, ByteView header) {
    ByteWriter writer;
    writer.text("ambrel stand-in key slot");
    writer.number(static_cast<std::uint8_t>(slot.factor));
    writer.number(slot.cost.passes);
    writer.number(slot.cost.memoryKibibytes);
    writer.raw(slot.salt);
    writer.raw(header);
    return writer.bytes();
}

} // namespace

KeySlot KeyWrapping::wrap(const SecretBytes& packageKey, Factor factor, const SecretBytes& secret,
                          const KeyDerivationCost& cost, ByteView header) {
    KeySlot slot;
    slot.factor = factor;
    slot.cost = cost;
    randombytes_buf(slot.salt.data(), slot.salt.size());
    randombytes_buf(slot.nonce.data(), slot.nonce.size());
    const SecretBytes key = deriveKey(slot, secret);
    const Bytes associated = associatedData(slot, header);
    crypto_aead_xchacha20poly1305_ietf_encrypt(slot.wrappedKey.data(), nullptr, packageKey.bytes().data(),
                                               packageKey.size(), associated.data(), associated.size(), nullptr,
                                               slot.nonce.data(), key.bytes().data());
    return slot;
}

std::optional<SecretBytes> KeyWrapping::unwrap(const KeySlot& slot, const SecretBytes& secret, ByteView header) {
    const SecretBytes key = deriveKey(slot, secret);
    const Bytes associated = associatedData(slot, header);
    SecretBytes packageKey(KeySlot::packageKeyByteCount);
    if (crypto_aead_xchacha20poly1305_ietf_decrypt(packageKey.bytes().data(), nullptr, nullptr, slot.wrappedKey.data(),
                                                   slot.wrappedKey.size(), associated.data(), associated.size(),
                                                   slot.nonce.data(), key.bytes().data()) != 0) {
        return std::nullopt;
    }
    return packageKey;
}
