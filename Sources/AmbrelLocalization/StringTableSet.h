#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/FileBackedValue.h"
#include "AmbrelLocalization/StringTable.h"

#include <filesystem>
#include <memory>
#include <vector>

/// The tables of one resource bundle, one per language, each loaded at its first use (English at once) and kept while
/// its file stays the same, or is gone. May be used on any thread.
class StringTableSet {
public:
    /// The tables of the bundle folder at `bundlePath`, which need not exist.
    explicit StringTableSet(const std::filesystem::path& bundlePath);

    /// The table of `language` (not `system`) as its file is now, else as it last was; null where there never was one.
    std::shared_ptr<const StringTable> table(AmbrelInterfaceLanguage language) const;

private:
    std::vector<std::unique_ptr<FileBackedValue<StringTable>>> tables_;
};
