#include "Fuzz/PackageScript.h"

#include "Common/Failure.h"
#include "Format/PayloadFormat.h"
#include "Support/TestFiles.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace {

std::optional<std::uint32_t> takeIndexOrNone(FuzzInput& input, std::size_t limit) {
    // Now and then one that does not exist.
    const std::size_t index = input.takeIndex(limit + 2);
    return index == 0 ? std::nullopt : std::optional(static_cast<std::uint32_t>(index - 1));
}

std::string takeName(FuzzInput& input) {
    constexpr std::array<std::string_view, 8> names = {"a", "a.jpg", "A.JPG", "Reise", "日本", "..", "x/y", ""};
    const std::uint8_t choice = input.takeByte();
    return std::string(choice < names.size() ? names[choice] : input.takeText());
}

std::uint8_t oneBitOf(std::uint8_t choice) {
    return static_cast<std::uint8_t>(1U << (choice & 7U));
}

} // namespace

PackageScript::PackageScript(const fs::path& path)
    : originals_{"a small original", "", std::string(2 * PayloadFormat::chunkPlaintextByteCount, 'x')}, package_(path) {
    for (const std::string& original : originals_) {
        payloads_.push_back(package_.store(original));
        payloadFiles_.push_back(TestFiles::read(package_.payloadPath(payloads_.back().identifier)));
    }
}

std::size_t PackageScript::intactPayloadCount() const {
    // With a link in the place of their folder all are elsewhere.
    if (!fs::is_directory(fs::symlink_status(package_.path() / "payloads"))) {
        return 0;
    }
    std::size_t count = 0;
    for (std::size_t index = 0; index < payloads_.size(); ++index) {
        const fs::path file = package_.payloadPath(payloads_[index].identifier);
        const bool isFile = fs::is_regular_file(fs::symlink_status(file));
        count += isFile && TestFiles::read(file) == payloadFiles_[index] ? 1U : 0U;
    }
    return count;
}

void PackageScript::run(FuzzInput& input) {
    constexpr int longestScript = 24;
    for (int step = 0; step < longestScript && !input.isAtEnd(); ++step) {
        try {
            takeStep(input);
        } catch (const Failure&) {
            // The writer refuses what is there already, or whose folder is gone.
        } catch (const fs::filesystem_error&) {
            // So does the file system.
        }
    }
}

void PackageScript::takeStep(FuzzInput& input) {
    const std::uint8_t kind = input.takeByte() % 12;
    const auto anyCommit = [&] { return commits_.empty() ? Identifier() : commits_[input.takeIndex(commits_.size())]; };
    switch (kind) {
    case 0:
    case 1:
        addCommit(input);
        break;
    case 2:
        package_.writer().publishHead(anyCommit());
        break;
    case 3:
        package_.writer().withdrawHead(anyCommit());
        break;
    case 4:
        commits_.push_back(package_.writer().addCommit(bytesOf(input.takeText())));
        break;
    default: {
        const fs::path entry = takeEntry(input);
        damage(kind, entry, input);
    }
    }
}

void PackageScript::addCommit(FuzzInput& input) {
    const bool isPublished = (input.takeByte() & 1) == 0;
    commits_.push_back(package_.writer().addCommit(takeRecord(input)));
    if (isPublished) {
        package_.writer().publishHead(commits_.back());
    }
}

CommitRecord PackageScript::takeRecord(FuzzInput& input) const {
    CommitRecord record = TestPackage::record({});
    for (std::size_t count = input.takeIndex(3); count > 0; --count) {
        const auto parent = takeIndexOrNone(input, commits_.size());
        record.parents.push_back(parent && *parent < commits_.size() ? commits_[*parent] : Identifier());
    }
    record.generation = commits_.size() + 1 + static_cast<std::uint64_t>(input.takeIndex(3)) - 1;
    record.writerEpoch = input.takeByte();
    for (std::size_t count = input.takeIndex(4); count > 0; --count) {
        record.folders.push_back({takeIndexOrNone(input, record.folders.size()), takeName(input)});
    }
    for (std::size_t count = input.takeIndex(4); count > 0; --count) {
        record.albums.push_back({takeIndexOrNone(input, record.folders.size()), takeName(input)});
    }
    for (std::size_t count = input.takeIndex(5); count > 0; --count) {
        record.items.push_back(takeItem(input));
    }
    for (std::size_t count = input.takeIndex(5); count > 0; --count) {
        const auto album = static_cast<std::uint32_t>(input.takeIndex(record.albums.size() + 1));
        record.memberships.push_back({album, static_cast<std::uint32_t>(input.takeIndex(record.items.size() + 1))});
    }
    record.tombstones.resize(input.takeIndex(3));
    return record;
}

CommitRecord::Item PackageScript::takeItem(FuzzInput& input) const {
    CommitRecord::Item item;
    for (std::size_t count = input.takeIndex(4); count > 0; --count) {
        const std::string name = takeName(input);
        const StoredPayload& payload = payloads_[input.takeIndex(payloads_.size())];
        const std::uint8_t change = input.takeByte();
        CommitRecord::Resource resource = {name, payload.identifier, payload.byteCount, 1'600'000'000, 0};
        if (change == 1) {
            ++resource.byteCount;
        } else if (change == 2) {
            resource.byteCount = std::uint64_t{1} << 60;
        } else if (change == 3) {
            resource.payload.bytes.front() ^= 1;
        } else if (change == 4) {
            resource.modifiedSeconds = static_cast<std::int64_t>(input.takeNumber());
        }
        item.resources.push_back(resource);
    }
    return item;
}

fs::path PackageScript::takeEntry(FuzzInput& input) const {
    std::vector<fs::path> entries;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(package_.path())) {
        entries.push_back(entry.path());
    }
    std::ranges::sort(entries);
    return entries.empty() ? package_.path() / "nothing" : entries[input.takeIndex(entries.size())];
}

void PackageScript::damage(std::uint8_t kind, const fs::path& file, FuzzInput& input) {
    const bool isFile = fs::is_regular_file(fs::symlink_status(file));
    std::string content = isFile ? TestFiles::read(file) : std::string();
    if (kind == 5 && !content.empty()) {
        const std::size_t place = input.takeNumber() % content.size();
        content[place] = static_cast<char>(content[place] ^ oneBitOf(input.takeByte()));
        TestFiles::write(file, content);
    } else if (kind == 6 && isFile) {
        content.resize(input.takeNumber() % (content.size() + 1));
        TestFiles::write(file, content);
    } else if (kind == 7 && isFile) {
        TestFiles::write(file, content + std::string(input.takeText()));
    } else if (kind == 8) {
        fs::remove_all(file);
    } else if (kind == 9) {
        const fs::path other = takeEntry(input);
        fs::remove_all(file);
        fs::copy(other, file, fs::copy_options::recursive);
    } else if (kind == 10) {
        fs::rename(file, file.parent_path() / takeName(input));
    } else if (kind == 11) {
        const fs::path other = takeEntry(input);
        fs::remove_all(file);
        fs::create_symlink(other, file);
    }
}
