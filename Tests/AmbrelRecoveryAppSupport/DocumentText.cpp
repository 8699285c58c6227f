#include "DocumentText.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

DocumentText DocumentText::inspection() {
    DocumentText document;
    document.levels_ = {
        {"document",
         {{"schemaIdentifier", "\"com.ambrel.recovery.cli-inspection.v1\""},
          {"formatIdentifier", "\"com.ambrel.backup.v1\""},
          {"formatVersion", "1"},
          {"unlockedFactor", "\"recovery-key\""},
          {"branchDisposition", "\"single-head\""},
          {"canonicalTipSelectionCode", "\"code-1\""},
          {"authenticatedCommitCount", "2"},
          {"authenticatedHeadCount", "3"},
          {"maximumWriterEpoch", "4"},
          {"preservedBranches", "[@branch]"},
          {"snapshots", "[@snapshot]"}}},
        {"branch", {{"tipSelectionCode", "\"code-1\""}, {"snapshotSelectionCodes", "[\"code-1\",\"code-2\"]"}}},
        {"snapshot",
         {{"selectionCode", "\"code-1\""},
          {"createdAtUTCMilliseconds", "1735689599000"},
          {"writerEpoch", "5"},
          {"generation", "6"},
          {"retainedTip", "true"},
          {"counts", "@counts"},
          {"logicalPlaintextByteCount", "7"},
          {"encryptedPayloadByteCount", "8"},
          {"payloadFileEvidence", "@evidence"}}},
        {"counts",
         {{"items", "9"},
          {"resources", "10"},
          {"folders", "11"},
          {"albums", "12"},
          {"memberships", "13"},
          {"tombstones", "14"}}},
        {"evidence",
         {{"complete", "true"},
          {"requiredFileCount", "15"},
          {"matchingFileCount", "16"},
          {"missingFileCount", "17"},
          {"mismatchedFileCount", "18"},
          {"unreadableFileCount", "19"}}},
    };
    return document;
}

DocumentText DocumentText::exported() {
    DocumentText document;
    document.levels_ = {{"document",
                         {{"schemaIdentifier", "\"com.ambrel.recovery.cli-export.v1\""},
                          {"status", "\"complete\""},
                          {"selectedSnapshotCode", "\"code-1\""},
                          {"totalItemCount", "1"},
                          {"recoveredItemCount", "2"},
                          {"totalResourceCount", "3"},
                          {"recoveredResourceCount", "4"},
                          {"failedResourceCount", "5"}}}};
    return document;
}

DocumentText DocumentText::with(std::string_view level, std::string_view key, std::string_view value) const {
    DocumentText changed = *this;
    const auto member = std::ranges::find(changed.members(level), key, &Members::value_type::first);
    if (member == changed.members(level).end()) {
        throw std::logic_error("no key " + std::string(key));
    }
    member->second = value;
    return changed;
}

DocumentText DocumentText::without(std::string_view level, std::string_view key) const {
    DocumentText changed = *this;
    const auto removed =
        std::erase_if(changed.members(level), [key](const auto& member) { return member.first == key; });
    if (removed != 1) {
        throw std::logic_error("no key " + std::string(key));
    }
    return changed;
}

DocumentText DocumentText::withFirst(std::string_view level, std::string_view key, std::string_view value) const {
    DocumentText changed = *this;
    Members& all = changed.members(level);
    all.insert(all.begin(), {std::string(key), std::string(value)});
    return changed;
}

DocumentText DocumentText::withLast(std::string_view level, std::string_view key, std::string_view value) const {
    DocumentText changed = *this;
    changed.members(level).emplace_back(key, value);
    return changed;
}

DocumentText DocumentText::reversed() const {
    DocumentText changed = *this;
    for (Level& level : changed.levels_) {
        std::ranges::reverse(level.members);
    }
    return changed;
}

std::string DocumentText::text() const {
    return text("document");
}

DocumentText::Members& DocumentText::members(std::string_view level) {
    const auto found = std::ranges::find(levels_, level, &Level::name);
    if (found == levels_.end()) {
        throw std::logic_error("no level " + std::string(level));
    }
    return found->members;
}

std::string DocumentText::text(std::string_view level) const {
    const auto found = std::ranges::find(levels_, level, &Level::name);
    if (found == levels_.end()) {
        throw std::logic_error("no level " + std::string(level));
    }
    std::string object = "{";
    for (const auto& [key, value] : found->members) {
        object += (object.size() > 1 ? ",\"" : "\"") + key + "\":";
        const std::size_t reference = value.find('@');
        if (reference == std::string::npos) {
            object += value;
            continue;
        }
        const std::size_t end = std::min(value.find_first_of("],", reference), value.size());
        object += value.substr(0, reference) +
                  text(std::string_view(value).substr(reference + 1, end - reference - 1)) + value.substr(end);
    }
    return object + "}";
}
