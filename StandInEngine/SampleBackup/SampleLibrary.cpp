#include "SampleBackup/SampleLibrary.h"

#include "Common/UniqueDescriptor.h"
#include "SampleBackup/SampleError.h"

#include <sodium.h>

#include <map>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

CommitRecord::Resource store(const PictureFolder::Picture& picture, PackageWriter& writer) {
    const UniqueDescriptor file(::open(picture.path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!file || ::fstat(file.get(), &status) != 0) {
        throw SampleError("A picture cannot be read: " + picture.path.string());
    }
    const StoredPayload payload = writer.addPayload(file.get());
    CommitRecord::Resource resource;
    resource.fileName = picture.fileName;
    resource.payload = payload.identifier;
    resource.byteCount = payload.byteCount;
    resource.modifiedSeconds = status.st_mtim.tv_sec;
    resource.modifiedNanoseconds = static_cast<std::uint32_t>(status.st_mtim.tv_nsec);
    return resource;
}

// Assigns indexes to the folders and albums of a record, adding each when it is first needed.
class Shelves {
public:
    explicit Shelves(CommitRecord& record) : record_(record) {}

    std::uint32_t albumAt(const std::vector<std::string>& path) {
        const auto [entry, isNew] = albums_.try_emplace(path, static_cast<std::uint32_t>(record_.albums.size()));
        if (isNew) {
            record_.albums.push_back({folderAt({path.begin(), path.end() - 1}), path.back()});
        }
        return entry->second;
    }

private:
    std::optional<std::uint32_t> folderAt(const std::vector<std::string>& path) {
        if (path.empty()) {
            return std::nullopt;
        }
        if (const auto known = folders_.find(path); known != folders_.end()) {
            return known->second;
        }
        const std::optional<std::uint32_t> parent = folderAt({path.begin(), path.end() - 1});
        const auto index = static_cast<std::uint32_t>(record_.folders.size());
        record_.folders.push_back({parent, path.back()});
        folders_.emplace(path, index);
        return index;
    }

    CommitRecord& record_;
    std::map<std::vector<std::string>, std::uint32_t> folders_;
    std::map<std::vector<std::string>, std::uint32_t> albums_;
};

} // namespace

SampleLibrary::SampleLibrary(const std::vector<PictureFolder::Picture>& pictures, PackageWriter& writer) {
    std::map<std::filesystem::path, std::size_t> itemsByStem;
    for (const PictureFolder::Picture& picture : pictures) {
        std::filesystem::path stem = picture.path;
        stem.replace_extension();
        const auto [entry, isNew] = itemsByStem.try_emplace(std::move(stem), items_.size());
        if (isNew) {
            PlacedItem& placed = items_.emplace_back();
            placed.folders = picture.folders;
            randombytes_buf(placed.item.identifier.data(), placed.item.identifier.size());
        }
        CommitRecord::Item& item = items_[entry->second].item;
        item.resources.push_back(store(picture, writer));
        item.createdAtMilliseconds = item.resources.front().modifiedSeconds * 1000;
    }
}

CommitRecord SampleLibrary::recordOf(const std::vector<std::size_t>& indexes) const {
    CommitRecord record;
    Shelves shelves(record);
    for (const std::size_t index : indexes) {
        const PlacedItem& placed = items_[index];
        if (!placed.folders.empty()) {
            record.memberships.push_back(
                {shelves.albumAt(placed.folders), static_cast<std::uint32_t>(record.items.size())});
        }
        record.items.push_back(placed.item);
    }
    return record;
}
