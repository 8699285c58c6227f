#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The texts of one language by key, from a table file: one flat JSON object in UTF-8. An immutable value; may be used
/// on any thread.
class StringTable {
public:
    /// Accepts any bytes: an invalid JSON object yields an empty table. Values that are not strings are skipped. For a
    /// duplicate key, the last value is used.
    static StringTable decoded(std::string_view bytes);

    StringTable(const StringTable&) = delete;
    StringTable& operator=(const StringTable&) = delete;
    StringTable(StringTable&&) = default;
    StringTable& operator=(StringTable&&) = default;

    /// Returns the text under `key`, or std::nullopt if it is missing or blank.
    std::optional<QString> text(std::string_view key) const;

    std::size_t size() const { return texts_.size(); }

private:
    StringTable() = default;

    // Only a few texts of a table are ever shown. All are kept as UTF-8 in one block and converted on demand.
    std::vector<char> characters_;
    std::unordered_map<std::string_view, std::string_view> texts_;
};
