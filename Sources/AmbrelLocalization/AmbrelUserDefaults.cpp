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

AmbrelUserDefaults::AmbrelUserDefaults(std::filesystem::path path)
    : path_(std::move(path)), text_(path_, maximumFileSize) {}

std::optional<QString> AmbrelUserDefaults::string(const QString& key) const {
    const std::shared_ptr<const SettingsText> text = text_.current();
    return text ? text->text(key) : std::nullopt;
}

bool AmbrelUserDefaults::setString(const QString& key, const QString& value) {
    // A save reads, merges and replaces the file. Between processes QSettings locks it for that.
    const std::lock_guard lock(writing_);
    QSettings settings(QFile::decodeName(path_.c_str()), QSettings::IniFormat);
    settings.setValue(key, value);
    settings.sync();
    // A file whose form is broken is written anew with what could be read of it; only that it cannot be written counts.
    return settings.status() != QSettings::AccessError;
}
