#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/FileBackedValue.h"
#include "AmbrelLocalization/StringTable.h"

#include <filesystem>
#include <memory>
#include <vector>

/// The tables of one resource bundle, one per language. Each is loaded at first use (English immediately) and cached
/// while its file is unchanged or missing. May be used on any thread.
class StringTableSet {
public:
    /// The tables of the bundle directory at `bundlePath`, which need not exist.
    explicit StringTableSet(const std::filesystem::path& bundlePath);

    /// Returns the current table of `language` (not `system`). If its file cannot be read, returns the last one, or
    /// null if there never was one.
    std::shared_ptr<const StringTable> table(AmbrelInterfaceLanguage language) const;

private:
    std::vector<std::unique_ptr<FileBackedValue<StringTable>>> tables_;
};
