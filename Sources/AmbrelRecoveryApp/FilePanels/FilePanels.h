#pragma once

#include "AmbrelRecoveryApp/FilePanels/ItemPanel.h"
#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"

#include <QDir>
#include <QPointer>
#include <QString>

#include <filesystem>

/// The application's own file panels. The desktops' panels can neither offer files and folders together nor treat a
/// package as a single item, and both theirs and Qt's let the user rename and delete files. Only one panel is open at a
/// time. A request for a second one, which is possible through assistive technology, raises the open panel and
/// completes with std::nullopt.
class FilePanels final : public RecoveryPanels {
public:
    /// `window` is the parent of the panels. After it has been destroyed, every request completes with std::nullopt.
    explicit FilePanels(QWidget* window);

    /// Dismisses the open panel, if any.
    ~FilePanels() override;

    void chooseBackup(const OpenPanel& panel, Completion completion) override;
    void chooseDestination(const SavePanel& panel, Completion completion) override;

private:
    void show(ItemPanel::Purpose purpose, const SavePanel& request, Completion completion);

    QPointer<QWidget> window_;
    QPointer<ItemPanel> open_;
    /// The folder in which the next panel opens: home, or that of the last choice in this session.
    std::filesystem::path folder_ = QDir::homePath().toStdString();
};
