#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ReturnKey.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"
#include "AmbrelRecoveryApp/FilePanels/PanelItemView.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QDir>
#include <QKeyEvent>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

using RecoveryAppCopy::Text;

namespace {

constexpr int listWidth = 196;
constexpr QMargins margins(12, 20, 12, 20);

/// The user's standard folders that exist. Blocks as long as the file system does; any thread.
std::vector<std::filesystem::path> usualFolders() {
    std::vector<std::filesystem::path> folders;
    for (const auto location :
         {QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation, QStandardPaths::DownloadLocation,
          QStandardPaths::MusicLocation, QStandardPaths::PicturesLocation, QStandardPaths::MoviesLocation}) {
        std::filesystem::path folder = QStandardPaths::writableLocation(location).toStdString();
        std::error_code error;
        if (folder.has_filename() && std::filesystem::is_directory(folder, error)) {
            folders.push_back(std::move(folder));
        }
    }
    return folders;
}

} // namespace

PlacesView::PlacesView(QWidget* parent)
    : QListWidget(parent), volumeTable_(QString::fromLatin1(MountedVolumes::tablePath)) {
    PanelItemView::prepare(*this);
    QPalette colors = RecoveryPalette::ofToolkit();
    colors.setColor(QPalette::Window, RecoveryPalette::rail());
    colors.setColor(QPalette::Base, RecoveryPalette::rail());
    setPalette(colors);
    setAutoFillBackground(true);
    setViewportMargins(margins);
    setFixedWidth(TextScale::scaled(listWidth) + margins.left() + margins.right());
    setAccessibleName(RecoveryAppCopy::localized(Text::locations));
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { emit placeChosen(path(row(item))); });
    fill();
    if (volumeTable_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        auto* const changes = new QSocketNotifier(volumeTable_.handle(), QSocketNotifier::Exception, this);
        connect(changes, &QSocketNotifier::activated, this, &PlacesView::readVolumes);
        readVolumes();
    }
    // If no thread is available, home and the volumes are enough to reach every folder.
    finding_.start(usualFolders, [this](std::vector<std::filesystem::path> folders) {
        usualFolders_ = std::move(folders);
        fill();
    });
}

void PlacesView::readVolumes() {
    volumeTable_.seek(0);
    std::vector<std::filesystem::path> volumes = MountedVolumes::forFiles(volumeTable_.readAll());
    if (volumes != volumes_) {
        volumes_ = std::move(volumes);
        fill();
    }
}

void PlacesView::fill() {
    clear();
    places_.clear();
    add(RecoveryAppCopy::localized(Text::home), QDir::homePath().toStdString(), RecoverySymbol::house);
    for (const std::filesystem::path& folder : usualFolders_) {
        add(FileNameText::readable(folder.filename().native()), folder, RecoverySymbol::folder);
    }
    for (const std::filesystem::path& root : volumes_) {
        add(root == "/" ? RecoveryAppCopy::localized(Text::computer) : FileNameText::readable(root.filename().native()),
            root, RecoverySymbol::externaldrive);
    }
    showFolder(folder_);
}

/// Lists a place, unless `folder` is listed already.
void PlacesView::add(const QString& name, const std::filesystem::path& folder, RecoverySymbol symbol) {
    if (std::ranges::find(places_, folder) == places_.end()) {
        places_.push_back(folder);
        (new QListWidgetItem(name, this))->setData(PanelItemView::symbolRole, static_cast<int>(symbol));
    }
}

void PlacesView::showFolder(const std::filesystem::path& folder) {
    folder_ = folder;
    const auto place = std::ranges::find(places_, folder);
    if (place != places_.end()) {
        setCurrentRow(static_cast<int>(place - places_.begin()));
    } else {
        clearSelection();
    }
}

void PlacesView::keyPressEvent(QKeyEvent* event) {
    if (isReturnKey(*event) && currentItem() != nullptr) {
        emit itemClicked(currentItem());
    } else {
        QListWidget::keyPressEvent(event);
    }
}
