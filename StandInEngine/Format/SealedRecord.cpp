#include "Format/SealedRecord.h"

#include "Common/ByteWriter.h"
#include "Common/Failure.h"

#include <sodium.h>

namespace {

constexpr std::size_t nonceByteCount = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr std::size_t tagByteCount = crypto_aead_xchacha20poly1305_ietf_ABYTES;

Bytes associatedData(const PackageKeys& keys, RecordKind kind, const Identifier& name) {
    ByteWriter writer;
    writer.text("ambrel stand-in record");
    writer.number(static_cast<std::uint8_t>(kind));
    writer.raw(keys.package);
    writer.raw(name.bytes);
    return writer.bytes();
}

} // namespace

Bytes SealedRecord::seal(const PackageKeys& keys, RecordKind kind, const Identifier& name, ByteView plaintext) {
    const Bytes associated = associatedData(keys, kind, name);
    Bytes sealed(nonceByteCount + plaintext.size() + tagByteCount);
    randombytes_buf(sealed.data(), nonceByteCount);
    crypto_aead_xchacha20poly1305_ietf_encrypt(sealed.data() + nonceByteCount, nullptr, plaintext.data(),
                                               plaintext.size(), associated.data(), associated.size(), nullptr,
                                               sealed.data(), keys.recordEncryption.bytes().data());
    return sealed;
}

Bytes SealedRecord::open(const PackageKeys& keys, RecordKind kind, const Identifier& name, ByteView sealed) {
    const Failure damaged(FailureReason::integrity, "a record does not authenticate");
    if (sealed.size() < nonceByteCount + tagByteCount) {
        throw damaged;
    }
    const Bytes associated = associatedData(keys, kind, name);
    Bytes plaintext(sealed.size() - nonceByteCount - tagByteCount);
    if (crypto_aead_xchacha20poly1305_ietf_decrypt(plaintext.data(), nullptr, nullptr, sealed.data() + nonceByteCount,
                                                   sealed.size() - nonceByteCount, associated.data(), associated.size(),
                                                   sealed.data(), keys.recordEncryption.bytes().data()) != 0) {
        throw damaged;
    }
    return plaintext;
}
