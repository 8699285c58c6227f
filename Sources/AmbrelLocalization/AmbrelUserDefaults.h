#pragma once

#include "AmbrelLocalization/FileStamp.h"

#include <QHash>
#include <QString>

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>

/// Texts that a user's programs store by key, in a settings file that several processes may read and write. Changes by
/// another process are seen at the next read. If another process saves twice within one millisecond, or within one step
/// of the file system's clock, and the file's length stays the same, the second save may be missed until the next one.
/// May be used on any thread; nothing throws.
class AmbrelUserDefaults {
public:
    /// The product's settings: Ambrel/Recovery.conf in the user's configuration directory (XDG_CONFIG_HOME, else
    /// ~/.config). The path is determined at the first call.
    static const std::shared_ptr<AmbrelUserDefaults>& standard();

    /// Uses the settings file at `path`, which need not exist.
    explicit AmbrelUserDefaults(std::filesystem::path path);

    const std::filesystem::path& path() const { return path_; }

    /// Returns the text under `key`, or std::nullopt if the key is absent, its value is not a text, or the file cannot
    /// be read or parsed. Costs one `stat` call while the file is unchanged.
    std::optional<QString> string(const QString& key) const;

    /// Stores `value` under `key`, keeps all other keys, and replaces the file atomically. Returns false if the file
    /// cannot be written; it is then unchanged.
    bool setString(const QString& key, const QString& value);

private:
    void read(const FileStamp& stamp) const;

    const std::filesystem::path path_;
    /// Guards all following members and serializes saves.
    mutable std::mutex mutex_;
    mutable QHash<QString, QString> texts_;
    /// The stamp of the file that the texts were read from, or std::nullopt if it must be read again.
    mutable std::optional<FileStamp> stamp_;
};
