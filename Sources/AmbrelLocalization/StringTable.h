#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The texts of one language by key, from a table file: one flat JSON object in UTF-8.
/// An immutable value; may be used on any thread.
class StringTable {
public:
    /// Any bytes give a table: a text that is no valid JSON object gives an empty one. Values that are no text are left
    /// out. Of a key that stands twice the last value counts.
    static StringTable decoded(std::string_view bytes);

    StringTable(const StringTable&) = delete;
    StringTable& operator=(const StringTable&) = delete;
    StringTable(StringTable&&) = default;
    StringTable& operator=(StringTable&&) = default;

    bool isEmpty() const { return texts_.empty(); }

    /// The text under `key`; none where there is none or a blank one.
    std::optional<QString> text(std::string_view key) const;

    std::size_t size() const { return texts_.size(); }

private:
    StringTable() = default;

    // Only a few texts of a table are ever shown, so each stays in UTF-8, in one block with all others, until it is
    // asked for.
    std::vector<char> characters_;
    std::unordered_map<std::string_view, std::string_view> texts_;
};
