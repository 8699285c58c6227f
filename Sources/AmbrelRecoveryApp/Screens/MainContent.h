#pragma once

#include <QScrollArea>

class ChooseBackupScreen;
class CompletionScreen;
class HeaderView;
class SnapshotsScreen;

/// The header and one of the three screens below it. Content that is too high for the window can be scrolled. The
/// snapshot list scrolls first, so that the export button stays visible.
class MainContent final : public QScrollArea {
    Q_OBJECT

public:
    explicit MainContent(QWidget* parent = nullptr);

    HeaderView* header() const { return header_; }
    ChooseBackupScreen* chooseBackup() const { return chooseBackup_; }
    SnapshotsScreen* snapshots() const { return snapshots_; }
    CompletionScreen* completion() const { return completion_; }

    /// Shows one of the screens and hides the others.
    void showScreen(QWidget* screen);

private:
    QWidget* const column_;
    HeaderView* const header_;
    ChooseBackupScreen* const chooseBackup_;
    SnapshotsScreen* const snapshots_;
    CompletionScreen* const completion_;
};
