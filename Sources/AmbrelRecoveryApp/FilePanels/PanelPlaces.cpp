#include "AmbrelRecoveryApp/FilePanels/PanelPlaces.h"

#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"
#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

using PanelTexts::Text;

PanelPlaces::Place PanelPlaces::home() {
    return {PanelTexts::localized(Text::home), QDir::homePath().toStdString(), RecoverySymbol::house};
}

std::vector<PanelPlaces::Place> PanelPlaces::usualFolders() {
    std::vector<Place> places;
    for (const auto& [location, text] : {std::pair(QStandardPaths::DesktopLocation, Text::desktop),
                                         std::pair(QStandardPaths::DocumentsLocation, Text::documents),
                                         std::pair(QStandardPaths::DownloadLocation, Text::downloads),
                                         std::pair(QStandardPaths::MusicLocation, Text::music),
                                         std::pair(QStandardPaths::PicturesLocation, Text::pictures),
                                         std::pair(QStandardPaths::MoviesLocation, Text::videos)}) {
        const std::filesystem::path path = QStandardPaths::writableLocation(location).toStdString();
        std::error_code error;
        const bool isNew =
            path != QDir::homePath().toStdString() && std::ranges::find(places, path, &Place::path) == places.end();
        if (isNew && std::filesystem::is_directory(path, error)) {
            places.push_back({PanelTexts::localized(text), path, RecoverySymbol::folder});
        }
    }
    return places;
}

std::vector<PanelPlaces::Place> PanelPlaces::volumes() {
    QFile table(QString::fromLatin1(MountedVolumes::tablePath));
    std::vector<Place> places;
    if (table.open(QIODevice::ReadOnly)) {
        for (std::filesystem::path& root : MountedVolumes::forFiles(table.readAll())) {
            QString name =
                root == "/" ? PanelTexts::localized(Text::computer) : FileNameText::readable(root.filename().native());
            places.push_back({std::move(name), std::move(root), RecoverySymbol::externaldrive});
        }
    }
    return places;
}
