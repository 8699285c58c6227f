#pragma once

#include "AmbrelLocalization/FileStamp.h"

#include <QHash>
#include <QString>

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>

/// Texts that a user's programs keep by key, in a settings file that several processes may read and write.
/// What another process saves is seen at the next read; of two saves of the same length within one millisecond, or one
/// step of the file system's clock, the second one may be missed until the next. May be used on any thread; nothing
/// throws.
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
    void read(const FileStamp& stamp) const;

    const std::filesystem::path path_;
    /// Guards all that follows, and one save after the other.
    mutable std::mutex mutex_;
    mutable QHash<QString, QString> texts_;
    /// Of the file that the texts were read from; none where it is to be read again.
    mutable std::optional<FileStamp> stamp_;
};
