#include "Format/CommitRecord.h"

#include "Common/ByteReader.h"
#include "Common/ByteWriter.h"
#include "Format/FileName.h"
#include "Format/PackageLayout.h"

#include <limits>

namespace {

constexpr std::uint32_t recordVersion = 1;
constexpr std::uint32_t noIndex = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t maximumParentCount = 16;

void require(bool condition) {
    if (!condition) {
        throw ByteReader::malformed();
    }
}

std::optional<std::uint32_t> decodeIndex(ByteReader& reader, std::size_t limit) {
    const auto index = reader.number<std::uint32_t>();
    if (index == noIndex) {
        return std::nullopt;
    }
    require(index < limit);
    return index;
}

std::string decodeName(ByteReader& reader) {
    std::string name = reader.text();
    require(FileName::isSafe(name));
    return name;
}

void encodeResource(ByteWriter& writer, const CommitRecord::Resource& resource) {
    writer.text(resource.fileName);
    writer.raw(resource.payload.bytes);
    writer.number(resource.byteCount);
    writer.number(resource.modifiedSeconds);
    writer.number(resource.modifiedNanoseconds);
}

CommitRecord::Resource decodeResource(ByteReader& reader) {
    CommitRecord::Resource resource;
    resource.fileName = decodeName(reader);
    resource.payload.bytes = reader.array<32>();
    resource.byteCount = reader.number<std::uint64_t>();
    resource.modifiedSeconds = reader.number<std::int64_t>();
    resource.modifiedNanoseconds = reader.number<std::uint32_t>();
    require(resource.byteCount <= PackageLayout::maximumResourceByteCount);
    require(resource.modifiedNanoseconds < 1'000'000'000);
    return resource;
}

void encodeItem(ByteWriter& writer, const CommitRecord::Item& item) {
    writer.raw(item.identifier);
    writer.number(item.createdAtMilliseconds);
    writer.number(static_cast<std::uint32_t>(item.resources.size()));
    for (const CommitRecord::Resource& resource : item.resources) {
        encodeResource(writer, resource);
    }
}

CommitRecord::Item decodeItem(ByteReader& reader) {
    constexpr std::size_t leastResourceByteCount = 2 + 1 + 32 + 8 + 8 + 4;
    CommitRecord::Item item;
    item.identifier = reader.array<16>();
    item.createdAtMilliseconds = reader.number<std::int64_t>();
    item.resources.resize(reader.count(leastResourceByteCount));
    for (CommitRecord::Resource& resource : item.resources) {
        resource = decodeResource(reader);
    }
    return item;
}

void decodeFolders(ByteReader& reader, std::vector<CommitRecord::Folder>& folders) {
    // A folder's parent always comes earlier, so there are no cycles; the depth is limited as well.
    constexpr std::uint32_t maximumDepth = 64;
    const std::size_t count = reader.count(4 + 2 + 1);
    std::vector<std::uint32_t> depths;
    folders.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        const std::optional<std::uint32_t> parent = decodeIndex(reader, index);
        depths.push_back(parent ? depths[*parent] + 1 : 1);
        require(depths.back() <= maximumDepth);
        folders.push_back({parent, decodeName(reader)});
    }
}

void decodeAlbums(ByteReader& reader, CommitRecord& record) {
    record.albums.resize(reader.count(4 + 2 + 1));
    for (CommitRecord::Album& album : record.albums) {
        album.folder = decodeIndex(reader, record.folders.size());
        album.name = decodeName(reader);
    }
}

void decodeMemberships(ByteReader& reader, CommitRecord& record) {
    record.memberships.resize(reader.count(4 + 4));
    for (CommitRecord::Membership& membership : record.memberships) {
        membership.album = reader.number<std::uint32_t>();
        membership.item = reader.number<std::uint32_t>();
        require(membership.album < record.albums.size() && membership.item < record.items.size());
    }
}

} // namespace

Bytes CommitRecord::encode() const {
    ByteWriter writer;
    writer.number(recordVersion);
    writer.number(static_cast<std::uint32_t>(parents.size()));
    for (const Identifier& parent : parents) {
        writer.raw(parent.bytes);
    }
    writer.number(createdAtMilliseconds);
    writer.number(writerEpoch);
    writer.number(generation);
    writer.number(static_cast<std::uint32_t>(folders.size()));
    for (const Folder& folder : folders) {
        writer.number(folder.parent.value_or(noIndex));
        writer.text(folder.name);
    }
    writer.number(static_cast<std::uint32_t>(albums.size()));
    for (const Album& album : albums) {
        writer.number(album.folder.value_or(noIndex));
        writer.text(album.name);
    }
    writer.number(static_cast<std::uint32_t>(items.size()));
    for (const Item& item : items) {
        encodeItem(writer, item);
    }
    writer.number(static_cast<std::uint32_t>(memberships.size()));
    for (const Membership& membership : memberships) {
        writer.number(membership.album);
        writer.number(membership.item);
    }
    writer.number(static_cast<std::uint32_t>(tombstones.size()));
    for (const Tombstone& tombstone : tombstones) {
        writer.raw(tombstone.item);
        writer.number(tombstone.removedAtMilliseconds);
    }
    return writer.bytes();
}

CommitRecord CommitRecord::decode(ByteView bytes) {
    ByteReader reader(bytes);
    CommitRecord record;
    require(reader.number<std::uint32_t>() == recordVersion);
    record.parents.resize(reader.count(sizeof(Identifier)));
    require(record.parents.size() <= maximumParentCount);
    for (Identifier& parent : record.parents) {
        parent.bytes = reader.array<32>();
    }
    record.createdAtMilliseconds = reader.number<std::int64_t>();
    record.writerEpoch = reader.number<std::uint64_t>();
    record.generation = reader.number<std::uint64_t>();
    decodeFolders(reader, record.folders);
    decodeAlbums(reader, record);
    record.items.resize(reader.count(16 + 8 + 4));
    for (Item& item : record.items) {
        item = decodeItem(reader);
    }
    decodeMemberships(reader, record);
    record.tombstones.resize(reader.count(16 + 8));
    for (Tombstone& tombstone : record.tombstones) {
        tombstone.item = reader.array<16>();
        tombstone.removedAtMilliseconds = reader.number<std::int64_t>();
    }
    reader.expectEnd();
    return record;
}
