// The decoders of the stand-in engine behind and beside the encryption, one for each first byte of the input.

#include "Common/ByteWriter.h"
#include "Common/Failure.h"
#include "Common/Hexadecimal.h"
#include "Common/KeyedHash.h"
#include "Format/CommitRecord.h"
#include "Format/FileName.h"
#include "Format/KeyFile.h"
#include "Format/PackageHeader.h"
#include "Format/PackageLayout.h"
#include "Format/RecoveryKey.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

using Fuzzing::expect;

/// What `decode` gives, or none where it refuses the bytes in the way in which it may.
template<typename Decode>
auto decoded(const Decode& decode) -> std::optional<decltype(decode())> {
    try {
        return decode();
    } catch (const Failure& failure) {
        expect(failure.reason() == FailureReason::integrity || failure.reason() == FailureReason::packageInvalid,
               "a record is refused as damaged or as no record");
        return std::nullopt;
    }
}

void expectName(const std::string& name, std::size_t number) {
    expect(!name.empty() && name.size() <= 255 && name != "." && name != ".." && name.find('/') == std::string::npos &&
               name.find('\0') == std::string::npos,
           "a name names one entry of a folder");
    const std::string numbered = FileName::numbered(name, number);
    expect(FileName::isSafe(numbered), "a numbered name is a name");
    expect(numbered.find(" (" + std::to_string(number) + ")") != std::string::npos, "a numbered name has its number");
    expect(name.size() > 230 || numbered.size() == name.size() + std::to_string(number).size() + 3,
           "a numbered name keeps the whole name");
}

void tryCommit(FuzzInput input) {
    const std::string_view bytes = input.takeRest();
    const auto record = decoded([&] { return CommitRecord::decode(bytesOf(bytes)); });
    if (!record) {
        return;
    }
    expect(std::ranges::equal(record->encode(), bytesOf(bytes)), "a record is written as it was read");
    expect(record->parents.size() <= 16, "a commit has few parents");
    for (std::size_t index = 0; index < record->folders.size(); ++index) {
        const CommitRecord::Folder& folder = record->folders[index];
        expect(!folder.parent || *folder.parent < index, "a folder lies in an earlier one");
        expectName(folder.name, index + 2);
    }
    for (const CommitRecord::Album& album : record->albums) {
        expect(!album.folder || *album.folder < record->folders.size(), "an album lies in a folder that there is");
        expectName(album.name, 2);
    }
    for (const CommitRecord::Item& item : record->items) {
        for (const CommitRecord::Resource& resource : item.resources) {
            expectName(resource.fileName, 1000);
            expect(resource.byteCount <= PackageLayout::maximumResourceByteCount, "a resource has a possible size");
            expect(resource.modifiedNanoseconds < 1'000'000'000, "a time has a possible fraction");
        }
    }
    for (const CommitRecord::Membership& membership : record->memberships) {
        expect(membership.album < record->albums.size() && membership.item < record->items.size(),
               "a membership joins what there is");
    }
}

void tryHeader(FuzzInput input) {
    const std::string_view bytes = input.takeRest();
    if (const auto header = decoded([&] { return PackageHeader::decode(bytesOf(bytes)); })) {
        expect(header->version == PackageHeader::supportedVersion, "only the known version is read");
        const std::string text = header->encode();
        expect(bytes.find(Hexadecimal::encode(header->package)) != std::string_view::npos,
               "the package's identifier is the one of the file");
        expect(PackageHeader::decode(bytesOf(text)).package == header->package, "a written header is read");
    }
}

void expectKeyFile(ByteView file, ByteView header) {
    if (const auto keys = decoded([&] { return KeyFile::decode(file, header); })) {
        for (const Factor factor : {Factor::backupPassphrase, Factor::recoveryKey}) {
            expect(keys->slot(factor).factor == factor, "every secret has its slot");
            expect(keys->slot(factor).cost.isAcceptable(), "a derivation costs what the engine agrees to spend");
        }
        expect(std::ranges::equal(keys->encode(header), file), "a key file is written as it was read");
    }
}

void tryKeyFile(FuzzInput input) {
    const ByteView header = bytesOf(input.takeText());
    const ByteView content = bytesOf(input.takeRest());
    expectKeyFile(content, header);
    // The same with the checksum that nobody finds by chance.
    KeyedHash hash({});
    hash.update(header);
    hash.update(content);
    ByteWriter file;
    file.raw(content);
    file.raw(hash.finish().bytes);
    expectKeyFile(file.bytes(), header);
}

void tryRecoveryKey(FuzzInput input) {
    const std::string_view typed = input.takeRest();
    if (const auto key = RecoveryKey::parse(SecretBytes::copyOf(bytesOf(typed)))) {
        expect(key->size() == 16, "a recovery key has 16 bytes");
        const SecretBytes printed = RecoveryKey::print(*key);
        const auto again = RecoveryKey::parse(printed);
        expect(again && std::ranges::equal(again->bytes(), key->bytes()), "a printed recovery key is read");
    }
}

/// The same with a key that is one, written with separators out of the input.
void tryPrintedRecoveryKey(FuzzInput input) {
    SecretBytes key(16);
    std::ranges::copy(input.takeBytes(16), key.bytes().begin());
    const SecretBytes printed = RecoveryKey::print(key);
    std::string typed;
    for (const std::uint8_t character : printed.bytes()) {
        const std::uint8_t change = input.takeByte();
        const auto letter = static_cast<char>(character);
        typed += (change & 1) != 0 && letter >= 'A' ? static_cast<char>(letter - 'A' + 'a') : letter;
        typed += (change & 2) != 0 ? "-" : "";
        typed += (change & 4) != 0 ? " \u2013" : "";
    }
    const auto read = RecoveryKey::parse(SecretBytes::copyOf(bytesOf(typed)));
    expect(read && std::ranges::equal(read->bytes(), key.bytes()), "a typed recovery key is read");
    typed[input.takeIndex(typed.size())] = '?';
    expect(!RecoveryKey::parse(SecretBytes::copyOf(bytesOf(typed))), "a mistyped recovery key is refused");
}

void tryName(FuzzInput input) {
    const std::size_t number = input.takeNumber();
    const std::string name(input.takeRest());
    if (FileName::isSafe(name)) {
        expectName(name, number);
    }
}

void tryIdentifier(FuzzInput input) {
    const std::string_view text = input.takeRest();
    if (const auto identifier = Identifier::fromHexadecimal(text)) {
        expect(identifier->hexadecimal() == text, "an identifier is written as it was read");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    expect(::sodium_init() >= 0, "the cryptography library is there");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::array kinds = {tryCommit, tryHeader,    tryKeyFile, tryRecoveryKey, tryPrintedRecoveryKey,
                                  tryName,   tryIdentifier};
    FuzzInput input(data, size);
    kinds[input.takeIndex(kinds.size())](input);
    return 0;
}
