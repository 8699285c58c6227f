#include "Format/PayloadFormat.h"

#include "Common/ByteWriter.h"

#include <sodium.h>

static_assert(PayloadFormat::streamHeaderByteCount == crypto_secretstream_xchacha20poly1305_HEADERBYTES);
static_assert(PayloadFormat::chunkOverheadByteCount == crypto_secretstream_xchacha20poly1305_ABYTES);

Bytes PayloadFormat::associatedData(const PackageIdentifier& package, const Identifier& payload) {
    ByteWriter writer;
    writer.text("ambrel stand-in payload");
    writer.raw(package);
    writer.raw(payload.bytes);
    return writer.bytes();
}
