#pragma once

#include <QWidget>

#include <filesystem>
#include <vector>

class SecondaryRecoveryButton;

/// Shows the path of a panel's current folder, elided in the middle if there is not enough room, with buttons to go
/// back and up. Assistive technology gets the full path. Decides which folder is shown. Main thread.
class PathBar final : public QWidget {
    Q_OBJECT

public:
    explicit PathBar(QWidget* parent = nullptr);

    const std::filesystem::path& folder() const { return folder_; }

    /// Shows `folder`, an absolute path, and clears the history.
    void begin(const std::filesystem::path& folder);
    /// Shows `folder`, an absolute path, and adds the previous folder to the history.
    void goTo(const std::filesystem::path& folder);
    /// Does nothing if the history is empty.
    void goBack();
    /// Does nothing at the root.
    void goUp();

signals:
    /// Emitted each time a folder is to be shown, even if it is already shown.
    void folderChanged(const std::filesystem::path& folder);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void show(const std::filesystem::path& folder);

    std::filesystem::path folder_;
    /// The folders that were shown before, the most recent one last.
    std::vector<std::filesystem::path> history_;
    SecondaryRecoveryButton* const back_;
    SecondaryRecoveryButton* const up_;
};
