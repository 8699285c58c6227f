#include "AmbrelLocalization/StringTable.h"

#include <QStringView>
#include <simdjson.h>

#include <utility>

StringTable StringTable::decoded(std::string_view bytes) {
    StringTable table;
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (parser.parse(bytes.data(), bytes.size()).get(object) != simdjson::SUCCESS) {
        return table;
    }
    // Large enough for all keys and texts, since an escape is never shorter than its character: the block must not
    // move.
    table.characters_.reserve(bytes.size());
    const auto kept = [&block = table.characters_](std::string_view text) {
        const std::size_t start = block.size();
        block.insert(block.end(), text.begin(), text.end());
        return std::string_view(block.data() + start, text.size());
    };
    table.texts_.reserve(object.size());
    for (const auto& [key, value] : object) {
        std::string_view text;
        if (value.get(text) == simdjson::SUCCESS) {
            table.texts_.insert_or_assign(kept(key), kept(text));
        }
    }
    return table;
}

std::optional<QString> StringTable::text(std::string_view key) const {
    const auto found = texts_.find(key);
    if (found == texts_.end()) {
        return std::nullopt;
    }
    QString text = QString::fromUtf8(found->second.data(), static_cast<qsizetype>(found->second.size()));
    return QStringView(text).trimmed().isEmpty() ? std::nullopt : std::optional(std::move(text));
}
