#pragma once

#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "AmbrelLocalization/StringTableFile.h"
#include "AmbrelPlatform/ApplicationBundle.h"

#include <QString>

#include <map>
#include <optional>
#include <string_view>

/// Looks up texts by key: in the table of a language, then in English, and finally falls back to the key itself.
///
/// The chosen language is not cached, so a change by another process takes effect immediately; a lookup costs two
/// `stat` calls while nothing changes. Texts outlive their files: if the bundle is removed while the program runs, the
/// tables loaded so far and English remain available. May be used on any thread; nothing throws.
class StringCatalogue {
public:
    /// The catalogue of the running program, with its bundle and the standard user defaults.
    static const StringCatalogue& ofProcess();

    /// A catalogue on the bundle in the resources of `application`, else on the module's own bundle, decided now. The
    /// stored language is read from `preferences`. Ends the process if neither bundle exists.
    StringCatalogue(const ApplicationBundle& application, AmbrelInterfaceLanguagePreferenceStore preferences);

    /// Returns the text under `key` for `localeIdentifier`, which must match exactly: one that names no language of the
    /// catalogue yields English. Without one, the stored language decides, else the system's preferred languages.
    QString text(std::string_view key, const std::optional<QString>& localeIdentifier = std::nullopt) const;

private:
    AmbrelInterfaceLanguagePreferenceStore preferences_;
    /// Those of all languages, by identifier.
    std::map<QString, StringTableFile> tables_;
};
