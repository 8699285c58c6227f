#include "AmbrelRecoveryApp/Platform/FilePanels.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

FilePanels::FilePanels(QWidget* window) : window_(window) {}

FilePanels::~FilePanels() {
    delete open_;
}

void FilePanels::chooseBackup(const OpenPanel& panel, Completion completion) {
    show(ItemPanel::Purpose::existingItem, {.title = panel.title, .prompt = panel.prompt, .proposedName = {}},
         std::move(completion));
}

void FilePanels::chooseDestination(const SavePanel& panel, Completion completion) {
    show(ItemPanel::Purpose::newItem,
         {.title = panel.title, .prompt = panel.prompt, .proposedName = panel.proposedName}, std::move(completion));
}

void FilePanels::show(ItemPanel::Purpose purpose, const ItemPanel::Texts& texts, Completion completion) {
    if (open_) {
        open_->raise();
        open_->activateWindow();
    }
    if (open_ || !window_) {
        completion(std::nullopt);
        return;
    }
    auto remembering = [this, completion = std::move(completion)](std::optional<std::filesystem::path> choice) {
        open_ = nullptr;
        if (choice) {
            folder_ = QFile::decodeName(choice->parent_path().c_str());
        }
        completion(std::move(choice));
    };
    open_ = new ItemPanel(purpose, texts, firstFolder(purpose), std::move(remembering), window_);
    open_->open();
}

QString FilePanels::firstFolder(ItemPanel::Purpose purpose) const {
    const QFileInfo folder(folder_);
    const bool isUsable = folder.isDir() && (purpose == ItemPanel::Purpose::existingItem || folder.isWritable());
    return isUsable ? folder_ : QDir::homePath();
}
