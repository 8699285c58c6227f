#include "TestPackage.h"

#include "Common/DescriptorIO.h"
#include "Format/RecoveryKey.h"

#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

UniqueDescriptor makeFolder(const std::filesystem::path& path) {
    std::filesystem::create_directory(path);
    return UniqueDescriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

std::string textOf(const SecretBytes& secret) {
    return {secret.bytes().begin(), secret.bytes().end()};
}

} // namespace

TestPackage::TestPackage(std::filesystem::path path) : TestPackage(std::move(path), RecoveryKey::generate()) {}

TestPackage::TestPackage(std::filesystem::path path, const SecretBytes& recoveryKey)
    : path_(std::move(path)), recoveryKey_(textOf(RecoveryKey::print(recoveryKey))), directory_(makeFolder(path_)),
      writer_(directory_.get(), SecretBytes::copyOf(bytesOf(passphrase)), recoveryKey, KeyDerivationCost::fast()) {}

StoredPayload TestPackage::store(std::string_view content) {
    const UniqueDescriptor file(::memfd_create("original", MFD_CLOEXEC));
    if (!DescriptorIO::writeFully(file.get(), bytesOf(content)) || ::lseek(file.get(), 0, SEEK_SET) != 0) {
        throw std::runtime_error("an original cannot be written");
    }
    return writer_.addPayload(file.get());
}

StoredPayload TestPackage::storeZeros(std::uint64_t byteCount) {
    const UniqueDescriptor file(::memfd_create("original", MFD_CLOEXEC));
    if (::ftruncate(file.get(), static_cast<off_t>(byteCount)) != 0) {
        throw std::runtime_error("an original cannot be written");
    }
    return writer_.addPayload(file.get());
}

CommitRecord::Item TestPackage::item(const std::string& name, std::string_view content) {
    const StoredPayload payload = store(content);
    CommitRecord::Item item;
    item.resources.push_back({name, payload.identifier, payload.byteCount, 1'600'000'000, 123'000'000});
    return item;
}

Identifier TestPackage::publish(CommitRecord record) {
    const Identifier commit = writer_.addCommit(record);
    writer_.publishHead(commit);
    return commit;
}

std::filesystem::path TestPackage::payloadPath(const Identifier& payload) const {
    return path_ / "payloads" / payload.hexadecimal();
}

std::filesystem::path TestPackage::commitPath(const Identifier& commit) const {
    return path_ / "commits" / commit.hexadecimal();
}

CommitRecord TestPackage::record(std::vector<CommitRecord::Item> items) {
    CommitRecord record;
    record.createdAtMilliseconds = 1'700'000'000'000;
    record.writerEpoch = 1;
    record.generation = 1;
    record.items = std::move(items);
    return record;
}
