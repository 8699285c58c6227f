#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"
#include "AmbrelRecoveryApp/Platform/ItemPanel.h"

#include <QPointer>
#include <QString>

/// The file panels of the desktop application, drawn by the toolkit over the application's window: the desktops' own
/// ones can neither offer files and folders together nor keep a package closed. One panel is open at a time; a second
/// one that is asked for meanwhile, as assistive technology can, brings the open one to the front and completes with
/// none.
class FilePanels final : public RecoveryPanels {
public:
    /// `window` is the window that the panels belong to. Once it is gone, every request completes with none.
    explicit FilePanels(QWidget* window);

    /// Dismisses the panel that is open.
    ~FilePanels() override;

    void chooseBackup(const OpenPanel& panel, Completion completion) override;
    void chooseDestination(const SavePanel& panel, Completion completion) override;

private:
    void show(ItemPanel::Purpose purpose, const ItemPanel::Texts& texts, Completion completion);

    /// Where a panel begins: the folder of the last choice, or home where there is none or it is of no use any more.
    QString firstFolder(ItemPanel::Purpose purpose) const;

    QPointer<QWidget> window_;
    QPointer<ItemPanel> open_;
    /// The folder of the last choice of this run; empty before the first.
    QString folder_;
};
