#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"

#include <QDialog>

#include <filesystem>

class PanelNameField;
class PrimaryRecoveryButton;
class TextLabel;

/// Asks for the name of a new folder and creates it on a background thread. Nothing that exists is changed: if the name
/// is taken, the panel shows a message and stays open. Never creates a folder in a backup package. Main thread; shown
/// with open(), and deletes itself.
class NewFolderPanel final : public QDialog {
    Q_OBJECT

public:
    /// `folder` is the parent of the new folder.
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
