#pragma once

#include <QWidget>

#include <filesystem>
#include <vector>

class PathLabel;
class SecondaryRecoveryButton;

/// Where a panel is, and the ways back and up. Decides which folder is shown. Main thread.
class PathBar final : public QWidget {
    Q_OBJECT

public:
    explicit PathBar(QWidget* parent = nullptr);

    const std::filesystem::path& folder() const { return folder_; }

    /// Shows `folder`, an absolute path, from which nothing leads back.
    void begin(const std::filesystem::path& folder);
    /// Shows `folder`, an absolute path; the folder that was shown can be gone back to.
    void goTo(const std::filesystem::path& folder);
    /// Does nothing where there is nothing to go back to.
    void goBack();
    /// Does nothing at the root.
    void goUp();

signals:
    /// Emitted each time a folder is to be shown, also where it is shown already.
    void folderChanged(const std::filesystem::path& folder);

private:
    void show(const std::filesystem::path& folder);

    std::filesystem::path folder_;
    /// The folders that were shown before, the last one at the end.
    std::vector<std::filesystem::path> history_;
    SecondaryRecoveryButton* const back_;
    SecondaryRecoveryButton* const up_;
    PathLabel* const path_;
};
