#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One snapshot of the library, and its place in the history. All times are UTC, since 1970.
struct CommitRecord {
    using ItemIdentifier = std::array<std::uint8_t, 16>;

    struct Folder {
        /// Index of the parent folder, which comes earlier in the list; std::nullopt at the top.
        std::optional<std::uint32_t> parent;
        std::string name;
    };

    struct Album {
        /// Index of the containing folder; std::nullopt at the top.
        std::optional<std::uint32_t> folder;
        std::string name;
    };

    struct Resource {
        std::string fileName;
        Identifier payload;
        std::uint64_t byteCount = 0;
        std::int64_t modifiedSeconds = 0;
        std::uint32_t modifiedNanoseconds = 0;
    };

    struct Item {
        ItemIdentifier identifier{};
        std::int64_t createdAtMilliseconds = 0;
        std::vector<Resource> resources;
    };

    struct Membership {
        std::uint32_t album = 0;
        std::uint32_t item = 0;
    };

    struct Tombstone {
        ItemIdentifier item{};
        std::int64_t removedAtMilliseconds = 0;
    };

    std::vector<Identifier> parents;
    std::int64_t createdAtMilliseconds = 0;
    std::uint64_t writerEpoch = 0;
    /// 1 for the first snapshot, otherwise higher than that of every parent.
    std::uint64_t generation = 0;
    std::vector<Folder> folders;
    std::vector<Album> albums;
    std::vector<Item> items;
    std::vector<Membership> memberships;
    std::vector<Tombstone> tombstones;

    /// The record's plaintext. Nothing is validated.
    Bytes encode() const;

    /// Parses a record and validates all names, indexes, counts and sizes in it. Throws Failure (integrity).
    static CommitRecord decode(ByteView bytes);
};
