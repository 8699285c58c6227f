#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"

#include <QDialog>

#include <filesystem>

class PanelNameField;
class PrimaryRecoveryButton;
class TextLabel;

/// Asks for the name of a new folder and makes it. Nothing that exists is touched: where the name is taken, it says so
/// and asks on. Nothing is made in a backup package. The folder is made on a thread of its own. Main thread; shown with
/// open(), and deletes itself.
class NewFolderPanel final : public QDialog {
    Q_OBJECT

public:
    /// `folder` is where the new one is made.
    NewFolderPanel(std::filesystem::path folder, QWidget* panel);

    void accept() override;

signals:
    void made(const std::filesystem::path& folder);

private:
    void handleNameChange();
    void finish(const std::filesystem::path& folder, const std::error_code& error);
    void showMessage(const QString& message);

    const std::filesystem::path folder_;
    PanelNameField* const name_;
    TextLabel* const message_;
    PrimaryRecoveryButton* const create_;
    LatestTask making_;
};
