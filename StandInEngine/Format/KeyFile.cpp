#include "Format/KeyFile.h"

#include "Common/ByteReader.h"
#include "Common/ByteWriter.h"
#include "Common/Failure.h"
#include "Common/KeyedHash.h"

namespace {

constexpr std::size_t checksumByteCount = sizeof(Identifier::bytes);

Identifier checksum(ByteView header, ByteView slots) {
    KeyedHash hash({});
    hash.update(header);
    hash.update(slots);
    return hash.finish();
}

KeySlot decodeSlot(ByteReader& reader, Factor factor) {
    KeySlot slot;
    slot.factor = factor;
    if (reader.number<std::uint8_t>() != static_cast<std::uint8_t>(factor)) {
        throw Failure(FailureReason::packageInvalid, "the key file has unknown slots");
    }
    slot.cost.passes = reader.number<std::uint32_t>();
    slot.cost.memoryKibibytes = reader.number<std::uint32_t>();
    if (!slot.cost.isAcceptable()) {
        throw Failure(FailureReason::packageInvalid, "the key derivation is out of bounds");
    }
    slot.salt = reader.array<sizeof slot.salt>();
    slot.nonce = reader.array<sizeof slot.nonce>();
    slot.wrappedKey = reader.array<sizeof slot.wrappedKey>();
    return slot;
}

} // namespace

const KeySlot& KeyFile::slot(Factor factor) const {
    return factor == slots[0].factor ? slots[0] : slots[1];
}

Bytes KeyFile::encode(ByteView header) const {
    ByteWriter writer;
    for (const KeySlot& slot : slots) {
        writer.number(static_cast<std::uint8_t>(slot.factor));
        writer.number(slot.cost.passes);
        writer.number(slot.cost.memoryKibibytes);
        writer.raw(slot.salt);
        writer.raw(slot.nonce);
        writer.raw(slot.wrappedKey);
    }
    const Identifier sum = checksum(header, writer.bytes());
    writer.raw(sum.bytes);
    return writer.bytes();
}

KeyFile KeyFile::decode(ByteView bytes, ByteView header) {
    if (bytes.size() < checksumByteCount) {
        throw ByteReader::malformed();
    }
    const ByteView slots = bytes.first(bytes.size() - checksumByteCount);
    ByteReader sumReader(bytes.last(checksumByteCount));
    if (checksum(header, slots).bytes != sumReader.array<checksumByteCount>()) {
        throw Failure(FailureReason::integrity, "the header or the key file is damaged");
    }
    ByteReader reader(slots);
    KeyFile file;
    file.slots[0] = decodeSlot(reader, Factor::backupPassphrase);
    file.slots[1] = decodeSlot(reader, Factor::recoveryKey);
    reader.expectEnd();
    return file;
}
