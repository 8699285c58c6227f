#include "AmbrelLocalization/AmbrelUserDefaults.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <utility>

namespace {

constexpr std::size_t maximumFileSize = 1'000'000;

std::filesystem::path standardPath() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QFile::encodeName(folder + QStringLiteral("/Ambrel/Recovery.conf")).toStdString();
}

} // namespace

const std::shared_ptr<AmbrelUserDefaults>& AmbrelUserDefaults::standard() {
    static const auto defaults = std::make_shared<AmbrelUserDefaults>(standardPath());
    return defaults;
}

AmbrelUserDefaults::AmbrelUserDefaults(std::filesystem::path path) : path_(std::move(path)) {}

std::optional<QString> AmbrelUserDefaults::string(const QString& key) const {
    const std::optional<FileStamp> stamp = FileStamp::ofFile(path_);
    if (!stamp || stamp->size() > maximumFileSize) {
        return std::nullopt;
    }
    const std::lock_guard lock(mutex_);
    if (stamp_ != stamp) {
        read(*stamp);
    }
    const auto text = texts_.constFind(key);
    return text == texts_.constEnd() ? std::nullopt : std::optional(*text);
}

void AmbrelUserDefaults::read(const FileStamp& stamp) const {
    const QSettings settings(QFile::decodeName(path_.c_str()), QSettings::IniFormat);
    texts_.clear();
    for (const QString& key : settings.allKeys()) {
        const QVariant value = key.isEmpty() ? QVariant() : settings.value(key);
        if (value.typeId() == QMetaType::QString) {
            texts_.insert(key, value.toString());
        }
    }
    // A file that could not be read may become readable without being changed, and a file that was just changed may
    // change again without getting a different stamp.
    const bool isFinal = settings.status() != QSettings::AccessError && stamp.isSettled();
    stamp_ = isFinal ? std::optional(stamp) : std::nullopt;
}

bool AmbrelUserDefaults::setString(const QString& key, const QString& value) {
    // Saving reads, merges and replaces the file; QSettings locks it against other processes.
    const std::lock_guard lock(mutex_);
    QSettings settings(QFile::decodeName(path_.c_str()), QSettings::IniFormat);
    settings.setValue(key, value);
    settings.sync();
    // A malformed file is rewritten with what could be read of it; only a failure to write is an error.
    return settings.status() != QSettings::AccessError;
}
