#include "SelfTest/RoundTrip.h"

#include "Common/DescriptorIO.h"
#include "Common/Failure.h"
#include "Engine/Engine.h"
#include "Format/PackageLayout.h"
#include "Format/PayloadFormat.h"
#include "Format/RecoveryKey.h"
#include "Package/PackageWriter.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr std::string_view passphrase = "a passphrase for the self-test";
constexpr std::array<std::uint8_t, randombytes_SEEDBYTES> contentSeed = {};

SecretBytes secretOf(std::string_view text) {
    return SecretBytes::copyOf(bytesOf(text));
}

void require(bool succeeded) {
    if (!succeeded) {
        throw Failure(FailureReason::outputNotWritten, "the temporary folder cannot be used");
    }
}

UniqueDescriptor open(const std::string& path, int flags) {
    UniqueDescriptor file(::open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, 0600));
    require(static_cast<bool>(file));
    return file;
}

FailureReason reasonOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.reason();
    }
    return FailureReason::unexpected;
}

// Returns the text under `key` in a document that this engine wrote.
std::string memberOf(std::string_view document, std::string_view key) {
    const std::string opening = "\"" + std::string(key) + "\":\"";
    const std::size_t start = document.find(opening);
    if (start == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = document.substr(start + opening.size());
    return std::string(rest.substr(0, rest.find('"')));
}

} // namespace

RoundTrip::RoundTrip() : recoveryKey_(RecoveryKey::generate()) {
    // Sizes around chunk boundaries.
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, PayloadFormat::chunkPlaintextByteCount,
                                   PayloadFormat::chunkPlaintextByteCount * 3 + 7}) {
        Original original{"Größe " + std::to_string(size), Bytes(size)};
        if (size > 0) {
            randombytes_buf_deterministic(original.content.data(), size, contentSeed.data());
        }
        originals_.push_back(std::move(original));
    }
}

bool RoundTrip::makePackage() {
    require(::mkdirat(folder_.descriptor(), "Package.ambrel", 0700) == 0);
    const UniqueDescriptor directory = open(packagePath(), O_RDONLY | O_DIRECTORY);
    PackageWriter writer(directory.get(), secretOf(passphrase), recoveryKey_, KeyDerivationCost::fast());
    CommitRecord record;
    record.createdAtMilliseconds = 1;
    record.generation = 1;
    for (const Original& original : originals_) {
        const UniqueDescriptor source = open(folder_.path() + "/" + original.name, O_RDWR | O_CREAT | O_EXCL);
        require(DescriptorIO::writeFully(source.get(), original.content));
        require(::lseek(source.get(), 0, SEEK_SET) == 0);
        const StoredPayload payload = writer.addPayload(source.get());
        payloadPath_ = packagePath() + "/" + PackageLayout::payloadFolder + "/" + payload.identifier.hexadecimal();
        CommitRecord::Item item;
        item.resources.push_back({original.name, payload.identifier, payload.byteCount, 1'000'000'000, 0});
        record.items.push_back(std::move(item));
    }
    writer.publishHead(writer.addCommit(record));
    return true;
}

bool RoundTrip::refuseWrongSecrets() const {
    const auto reasonFor = [&](Factor factor, SecretBytes typed) {
        return reasonOf([&] { inspectionText({factor, std::move(typed)}); });
    };
    return reasonFor(Factor::backupPassphrase, secretOf("another passphrase")) ==
               FailureReason::passphraseDidNotUnlock &&
           reasonFor(Factor::recoveryKey, RecoveryKey::print(RecoveryKey::generate())) ==
               FailureReason::recoveryKeyDidNotUnlock &&
           reasonFor(Factor::recoveryKey, secretOf(passphrase)) == FailureReason::credentialInvalid;
}

bool RoundTrip::inspect(Factor factor) {
    const std::string text = inspectionText(credential(factor));
    selectionCode_ = memberOf(text, "selectionCode");
    return !selectionCode_.empty() && text.find("\"complete\":true,\"requiredFileCount\":4") != std::string::npos;
}

bool RoundTrip::exportSnapshot() const {
    CommandLine line;
    line.packagePath = packagePath();
    line.destinationPath = exportPath();
    line.snapshotCode = selectionCode_;
    std::string report;
    Engine::exportSnapshot(line, credential(Factor::backupPassphrase),
                           [&](std::string_view document) { report = document; });
    return memberOf(report, "status") == "complete" &&
           std::ranges::all_of(originals_, [&](const Original& original) { return isExported(original); });
}

bool RoundTrip::detectDamage() const {
    const UniqueDescriptor payload = open(payloadPath_, O_RDWR);
    struct stat status = {};
    require(::fstat(payload.get(), &status) == 0);
    std::array<std::uint8_t, 1> byte{};
    require(::pread(payload.get(), byte.data(), 1, status.st_size / 2) == 1);
    byte[0] ^= 1;
    require(::pwrite(payload.get(), byte.data(), 1, status.st_size / 2) == 1);
    const std::string text = inspectionText(credential(Factor::recoveryKey));
    return text.find("\"complete\":false") != std::string::npos &&
           text.find("\"mismatchedFileCount\":1") != std::string::npos;
}

Credential RoundTrip::credential(Factor factor) const {
    return {factor, factor == Factor::recoveryKey ? RecoveryKey::print(recoveryKey_) : secretOf(passphrase)};
}

std::string RoundTrip::inspectionText(const Credential& credential) const {
    CommandLine line;
    line.packagePath = packagePath();
    std::string text;
    Engine::inspect(line, credential, [&](std::string_view document) { text = document; });
    return text;
}

bool RoundTrip::isExported(const Original& original) const {
    const UniqueDescriptor file = open(exportPath() + "/" + original.name, O_RDONLY);
    Bytes content(original.content.size() + 1);
    const std::optional<std::size_t> count = DescriptorIO::readFully(file.get(), content);
    return count == original.content.size() && std::ranges::equal(ByteView(content).first(*count), original.content);
}
