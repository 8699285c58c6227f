#pragma once

#include "AmbrelRecoveryApp/FilePanels/ItemPanel.h"
#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"

#include <QPointer>
#include <QString>

/// The file panels of the desktop application, which are its own: the desktops' can neither offer files and folders
/// together nor keep a package closed, and both theirs and the toolkit's let the user rename and delete. One panel is
/// open at a time; a second one that is asked for meanwhile, as assistive technology can, brings the open one to the
/// front and completes with none.
class FilePanels final : public RecoveryPanels {
public:
    /// `window` is the window that the panels belong to. Once it is gone, every request completes with none.
    explicit FilePanels(QWidget* window);

    /// Dismisses the panel that is open.
    ~FilePanels() override;

    void chooseBackup(const OpenPanel& panel, Completion completion) override;
    void chooseDestination(const SavePanel& panel, Completion completion) override;

private:
    void show(ItemPanel::Purpose purpose, const ItemPanel::Request& request, Completion completion);

    QPointer<QWidget> window_;
    QPointer<ItemPanel> open_;
    /// The folder of the last choice of this run, where the next panel begins; none before the first.
    std::optional<std::filesystem::path> folder_;
};
