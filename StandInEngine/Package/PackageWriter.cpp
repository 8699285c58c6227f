#include "Package/PackageWriter.h"

#include "Common/DescriptorIO.h"
#include "Common/Failure.h"
#include "Common/KeyedHash.h"
#include "Common/UniqueDescriptor.h"
#include "Format/KeyFile.h"
#include "Format/KeyWrapping.h"
#include "Format/PackageLayout.h"
#include "Format/SealedRecord.h"
#include "Package/PayloadWriter.h"

#include <sodium.h>

#include <string>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

Failure notWritten() {
    return Failure(FailureReason::outputNotWritten, "the package cannot be written");
}

PackageHeader freshHeader(std::uint64_t version) {
    PackageHeader header;
    header.version = version;
    randombytes_buf(header.package.data(), header.package.size());
    return header;
}

SecretBytes freshPackageKey() {
    SecretBytes key(KeySlot::packageKeyByteCount);
    randombytes_buf(key.bytes().data(), key.size());
    return key;
}

} // namespace

PackageWriter::PackageWriter(int directory, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                             const KeyDerivationCost& cost, std::uint64_t version)
    : PackageWriter(directory, passphrase, recoveryKey, cost, freshHeader(version), freshPackageKey()) {}

PackageWriter::PackageWriter(int directory, const SecretBytes& passphrase, const SecretBytes& recoveryKey,
                             const KeyDerivationCost& cost, const PackageHeader& header, const SecretBytes& packageKey)
    : directory_(directory), keys_(header.package, packageKey) {
    const std::string headerText = header.encode();
    const ByteView headerBytes = bytesOf(headerText);
    KeyFile keyFile;
    keyFile.slots[0] = KeyWrapping::wrap(packageKey, Factor::backupPassphrase, passphrase, cost, headerBytes);
    keyFile.slots[1] = KeyWrapping::wrap(packageKey, Factor::recoveryKey, recoveryKey, cost, headerBytes);
    writeFile(nullptr, PackageLayout::headerFile, headerBytes);
    writeFile(nullptr, PackageLayout::keyFile, keyFile.encode(headerBytes));
    for (const char* folder : {PackageLayout::commitFolder, PackageLayout::headFolder, PackageLayout::payloadFolder}) {
        if (::mkdirat(directory_, folder, 0777) != 0) {
            throw notWritten();
        }
    }
}

StoredPayload PackageWriter::addPayload(int source) {
    const PayloadWriter writer(directory_, keys_);
    return writer.write(source);
}

Identifier PackageWriter::addCommit(const CommitRecord& record) {
    return addCommit(record.encode());
}

Identifier PackageWriter::addCommit(ByteView plaintext) {
    const Identifier commit = KeyedHash::of(keys_.commitNaming.bytes(), plaintext);
    writeFile(PackageLayout::commitFolder, commit.hexadecimal().c_str(),
              SealedRecord::seal(keys_, RecordKind::commit, commit, plaintext));
    return commit;
}

void PackageWriter::publishHead(const Identifier& commit) {
    writeFile(PackageLayout::headFolder, commit.hexadecimal().c_str(),
              SealedRecord::seal(keys_, RecordKind::head, commit, commit.bytes));
}

void PackageWriter::withdrawHead(const Identifier& commit) {
    const std::string path = std::string(PackageLayout::headFolder) + "/" + commit.hexadecimal();
    if (::unlinkat(directory_, path.c_str(), 0) != 0) {
        throw notWritten();
    }
}

void PackageWriter::writeFile(const char* folder, const char* name, ByteView content) const {
    const std::string path = folder == nullptr ? std::string(name) : std::string(folder) + "/" + name;
    const UniqueDescriptor file(::openat(directory_, path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file || !DescriptorIO::writeFully(file.get(), content)) {
        throw notWritten();
    }
}
