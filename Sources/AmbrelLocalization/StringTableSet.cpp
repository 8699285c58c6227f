#include "AmbrelLocalization/StringTableSet.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t maximumTableSize = 10'000'000;

} // namespace

StringTableSet::StringTableSet(const std::filesystem::path& bundlePath) {
    for (const AmbrelInterfaceLanguage language : AmbrelInterfaceLanguage::selectableLanguages()) {
        const std::string folder = language.rawValue().toStdString() + ".lproj";
        tables_.push_back(
            std::make_unique<FileBackedValue<StringTable>>(bundlePath / folder / "Localizable.json", maximumTableSize));
    }
    // English replaces missing texts of other languages, even after the bundle has been removed.
    table(AmbrelInterfaceLanguage::english);
}

std::shared_ptr<const StringTable> StringTableSet::table(AmbrelInterfaceLanguage language) const {
    const auto selectable = AmbrelInterfaceLanguage::selectableLanguages();
    const auto found = std::ranges::find(selectable, language);
    return tables_[static_cast<std::size_t>(found - selectable.begin())]->current();
}
