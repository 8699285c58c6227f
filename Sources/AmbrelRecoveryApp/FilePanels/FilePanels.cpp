#include "AmbrelRecoveryApp/FilePanels/FilePanels.h"

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <utility>

FilePanels::FilePanels(QWidget* window) : window_(window) {}

FilePanels::~FilePanels() {
    delete open_;
}

void FilePanels::chooseBackup(const OpenPanel& panel, Completion completion) {
    show(ItemPanel::Purpose::existingItem,
         {.title = panel.title, .prompt = panel.prompt, .proposedName = {}, .requiredByteCount = std::nullopt},
         std::move(completion));
}

void FilePanels::chooseDestination(const SavePanel& panel, Completion completion) {
    show(ItemPanel::Purpose::newItem, panel, std::move(completion));
}

void FilePanels::show(ItemPanel::Purpose purpose, const SavePanel& request, Completion completion) {
    MainThread::require();
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
            folder_ = choice->parent_path();
        }
        completion(std::move(choice));
    };
    open_ = new ItemPanel(purpose, request, folder_, std::move(remembering), window_);
    open_->open();
}
