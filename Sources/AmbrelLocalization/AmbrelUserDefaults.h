#pragma once

#include "AmbrelLocalization/FileBackedValue.h"
#include "AmbrelLocalization/SettingsText.h"

#include <QString>

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>

/// Texts that a user's programs keep by key, in a settings file that several processes may read and write.
/// What another process saves is seen at the next read. May be used on any thread; nothing throws.
class AmbrelUserDefaults {
public:
    /// The product's own: Ambrel/Recovery.conf in the user's configuration folder (XDG_CONFIG_HOME, else ~/.config).
    /// The place is decided at the first call.
    static const std::shared_ptr<AmbrelUserDefaults>& standard();

    /// Kept in the settings file at `path`, which need not exist.
    explicit AmbrelUserDefaults(std::filesystem::path path);

    const std::filesystem::path& path() const { return path_; }

    /// The text under `key`; none where the key is absent, its value is no text, or the file cannot be read or
    /// understood. Costs one `stat` while the file is unchanged.
    std::optional<QString> string(const QString& key) const;

    /// Puts `value` under `key`, keeps every other key, and replaces the file in one step.
    /// False where the file cannot be written; it is then as it was.
    bool setString(const QString& key, const QString& value);

private:
    std::filesystem::path path_;
    mutable FileBackedValue<SettingsText> text_;
    std::mutex writing_;
};
