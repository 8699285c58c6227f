#include "Package/PayloadWriter.h"

#include "Common/DescriptorIO.h"
#include "Common/Failure.h"
#include "Common/KeyedHash.h"
#include "Common/StopRequest.h"
#include "Common/UniqueDescriptor.h"
#include "Format/PackageLayout.h"
#include "Format/PayloadFormat.h"
#include "Format/PayloadStreamState.h"

#include <sodium.h>

#include <array>
#include <cerrno>
#include <string>

#include <fcntl.h>

namespace {

// The next chunk of the original; only the last one can be shorter than a full chunk.
ByteView nextChunk(int source, Bytes& buffer) {
    StopRequest::throwIfRequested();
    const std::optional<std::size_t> count = DescriptorIO::readFully(source, buffer);
    if (!count) {
        throw Failure(FailureReason::outputNotWritten, "an original cannot be read");
    }
    return ByteView(buffer).first(*count);
}

void writeAll(int file, ByteView bytes) {
    if (!DescriptorIO::writeFully(file, bytes)) {
        throw Failure(FailureReason::outputNotWritten, "the package cannot be written");
    }
}

} // namespace

StoredPayload PayloadWriter::write(int source) const {
    const StoredPayload payload = name(source);
    const std::string path = std::string(PackageLayout::payloadFolder) + "/" + payload.identifier.hexadecimal();
    const UniqueDescriptor file(::openat(directory_, path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file && errno == EEXIST) {
        return payload;
    }
    if (!file || ::lseek(source, 0, SEEK_SET) != 0) {
        throw Failure(FailureReason::outputNotWritten, "the package cannot be written");
    }
    encrypt(source, file.get(), payload);
    return payload;
}

StoredPayload PayloadWriter::name(int source) const {
    StoredPayload payload;
    KeyedHash hash(keys_.payloadNaming.bytes());
    Bytes buffer(PayloadFormat::chunkPlaintextByteCount);
    for (ByteView chunk = nextChunk(source, buffer); !chunk.empty(); chunk = nextChunk(source, buffer)) {
        hash.update(chunk);
        payload.byteCount += chunk.size();
    }
    payload.identifier = hash.finish();
    return payload;
}

void PayloadWriter::encrypt(int source, int file, const StoredPayload& payload) const {
    std::array<std::uint8_t, PayloadFormat::streamHeaderByteCount> header{};
    PayloadStreamState stream;
    crypto_secretstream_xchacha20poly1305_init_push(&stream.state, header.data(),
                                                    keys_.payloadEncryption.bytes().data());
    writeAll(file, header);
    const Bytes associated = PayloadFormat::associatedData(keys_.package, payload.identifier);
    KeyedHash hash(keys_.payloadNaming.bytes());
    Bytes buffer(PayloadFormat::chunkPlaintextByteCount);
    Bytes sealed(PayloadFormat::chunkByteCount);
    std::uint64_t done = 0;
    for (bool isLast = false; !isLast;) {
        const ByteView chunk = nextChunk(source, buffer);
        hash.update(chunk);
        done += chunk.size();
        isLast = done >= payload.byteCount || chunk.empty();
        unsigned long long length = 0;
        crypto_secretstream_xchacha20poly1305_push(&stream.state, sealed.data(), &length, chunk.data(), chunk.size(),
                                                   associated.data(), associated.size(),
                                                   isLast ? crypto_secretstream_xchacha20poly1305_TAG_FINAL
                                                          : crypto_secretstream_xchacha20poly1305_TAG_MESSAGE);
        writeAll(file, ByteView(sealed).first(static_cast<std::size_t>(length)));
    }
    if (hash.finish() != payload.identifier) {
        throw Failure(FailureReason::outputNotWritten, "an original changed while it was read");
    }
}
