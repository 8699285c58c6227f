#pragma once

#include <QScrollArea>

#include <vector>

class ChooseBackupScreen;
class CompletionScreen;
class HeaderView;
class QVBoxLayout;
class SnapshotsScreen;

/// The header and one of the three screens below it. The first screen is there from the beginning; the others are added
/// when they are needed, so that the window comes up without waiting for them. What is too high for the window is
/// scrolled; the snapshot list is scrolled by itself first, so that the export button stays in sight.
class MainContent final : public QScrollArea {
    Q_OBJECT

public:
    explicit MainContent(QWidget* parent = nullptr);

    HeaderView* header() const { return header_; }
    ChooseBackupScreen* chooseBackup() const { return chooseBackup_; }
    /// Null as long as it has not been added.
    SnapshotsScreen* snapshots() const { return snapshots_; }
    CompletionScreen* completion() const { return completion_; }

    /// Adds a screen, hidden; each is added once.
    SnapshotsScreen* addSnapshots();
    CompletionScreen* addCompletion();

    /// Shows one of the screens and hides the others.
    void showScreen(QWidget* screen);

private:
    void addScreen(QWidget* screen);

    QWidget* const column_;
    QVBoxLayout* const lines_;
    HeaderView* const header_;
    ChooseBackupScreen* const chooseBackup_;
    SnapshotsScreen* snapshots_ = nullptr;
    CompletionScreen* completion_ = nullptr;
    std::vector<QWidget*> screens_;
};
