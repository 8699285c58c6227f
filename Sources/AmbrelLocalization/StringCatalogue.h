#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguage.h"
#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/StringTableSet.h"
#include "AmbrelPlatform/ApplicationBundle.h"

#include <QString>

#include <optional>
#include <string_view>

/// The lookup of texts by key: a language, its table, English where the table has no such key, and at last the key.
///
/// Nothing about the choice of a language is remembered between lookups, so a change by another process counts at
/// once; while nothing changed a lookup costs two `stat` calls. Texts outlive their files: a bundle that goes away
/// while the program runs leaves it those that it has shown, and English. May be used on any thread; nothing throws.
class StringCatalogue {
public:
    /// The running program's catalogue, on its bundle and the standard user defaults.
    static const StringCatalogue& ofProcess();

    /// A catalogue on the bundle among the resources of `application`, else on the module's own, as it is now, with the
    /// stored language in `preferences`. Ends the process where there is neither.
    StringCatalogue(const ApplicationBundle& application, AmbrelInterfaceLanguagePreferenceStore preferences);

    /// The text under `key` for `localeIdentifier`, taken unchanged: one that names no language of the catalogue gives
    /// English. Without one, the stored language decides, else the system's preferred languages.
    QString text(std::string_view key, const std::optional<QString>& localeIdentifier = std::nullopt) const;

private:
    std::optional<AmbrelInterfaceLanguage> language(const std::optional<QString>& localeIdentifier) const;
    std::optional<QString> textInTable(AmbrelInterfaceLanguage language, std::string_view key) const;

    AmbrelInterfaceLanguagePreferenceStore preferences_;
    StringTableSet tables_;
};
