#include "Package/PayloadReader.h"

#include "Common/DescriptorIO.h"
#include "Common/KeyedHash.h"
#include "Format/PackageLayout.h"
#include "Format/PayloadFormat.h"
#include "Format/PayloadStreamState.h"

#include <sodium.h>

#include <array>
#include <optional>

PayloadEvidence PayloadReader::read(const Identifier& payload, const Consumer& consume) const {
    const PackageFile file = directory_.openFile(PackageLayout::payloadFolder, payload);
    PayloadEvidence evidence;
    evidence.fileByteCount = file.byteCount;
    switch (file.state) {
    case PackageFile::State::missing:
        evidence.state = PayloadState::missing;
        break;
    case PackageFile::State::irregular:
        evidence.state = PayloadState::mismatched;
        break;
    case PackageFile::State::unreadable:
        evidence.state = PayloadState::unreadable;
        break;
    case PackageFile::State::opened:
        evidence.state = readStream(file.descriptor.get(), payload, consume, evidence.plaintextByteCount);
        break;
    }
    return evidence;
}

PayloadState PayloadReader::readStream(int descriptor, const Identifier& payload, const Consumer& consume,
                                       std::uint64_t& plaintextByteCount) const {
    std::array<std::uint8_t, PayloadFormat::streamHeaderByteCount> header{};
    std::optional<std::size_t> count = DescriptorIO::readFully(descriptor, header);
    if (!count) {
        return PayloadState::unreadable;
    }
    PayloadStreamState stream;
    if (*count != header.size() || crypto_secretstream_xchacha20poly1305_init_pull(
                                       &stream.state, header.data(), keys_.payloadEncryption.bytes().data()) != 0) {
        return PayloadState::mismatched;
    }
    const Bytes associated = PayloadFormat::associatedData(keys_.package, payload);
    KeyedHash hash(keys_.payloadNaming.bytes());
    Bytes chunk(PayloadFormat::chunkByteCount);
    Bytes plaintext(PayloadFormat::chunkPlaintextByteCount);
    unsigned char tag = 0;
    while (tag != crypto_secretstream_xchacha20poly1305_TAG_FINAL) {
        count = DescriptorIO::readFully(descriptor, chunk);
        if (!count) {
            return PayloadState::unreadable;
        }
        unsigned long long length = 0;
        if (*count < PayloadFormat::chunkOverheadByteCount ||
            crypto_secretstream_xchacha20poly1305_pull(&stream.state, plaintext.data(), &length, &tag, chunk.data(),
                                                       *count, associated.data(), associated.size()) != 0) {
            return PayloadState::mismatched;
        }
        const ByteView original(plaintext.data(), static_cast<std::size_t>(length));
        hash.update(original);
        plaintextByteCount += original.size();
        consume(original);
    }
    count = DescriptorIO::readFully(descriptor, std::span(chunk).first(1));
    if (!count) {
        return PayloadState::unreadable;
    }
    return *count == 0 && hash.finish() == payload ? PayloadState::matching : PayloadState::mismatched;
}
