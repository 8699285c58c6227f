#pragma once

#include "AmbrelRecoveryApp/Controls/CopperGlow.h"
#include "AmbrelRecoveryApp/Screens/FocusPlan.h"
#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QPointer>
#include <QWidget>

#include <filesystem>
#include <optional>

class Announcer;
class DropArea;
class ErrorAlert;
class JourneyRail;
class MainContent;
class RecoveryViewModel;
class ScreenTransition;

/// The whole content of the window: a side rail, the screen of the current step, and the error alert. It shows what the
/// model publishes and turns what the user does into calls of the model. Main thread.
class RecoveryRootView final : public QWidget {
    Q_OBJECT

public:
    /// `model` must outlive the view.
    explicit RecoveryRootView(RecoveryViewModel& model, QWidget* parent = nullptr);

    /// Shows the path of the exported folder on the last screen, for the user to find it by; nothing where `folder` is
    /// not that folder.
    void showPath(const std::filesystem::path& folder);

    /// The path that showPath() shows; none where it shows none.
    const std::optional<std::filesystem::path>& shownPath() const { return shownPath_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void connectChooseBackup();
    void connectSnapshots();
    void connectCompletion();
    QWidget* screenOfThePhase() const;
    void scheduleRedraw();
    void redraw();
    void applyContents();
    void applyScreens();
    void applyAlert();
    void applyCredential();
    QWidget* widgetOf(FocusPlan::Target target) const;
    void moveFocus();
    void announceStep(const RecoveryScreenState& before);
    void announceErrorOfTheStart();
    void pressMainButton();
    void chooseSnapshot(int row);
    void inspect();

    RecoveryViewModel& model_;
    /// What is shown.
    RecoveryScreenState state_;
    bool isRedrawScheduled_ = false;
    CopperGlow glow_;
    JourneyRail* rail_ = nullptr;
    MainContent* content_ = nullptr;
    ScreenTransition* transition_ = nullptr;
    /// Null before the first error.
    ErrorAlert* alert_ = nullptr;
    Announcer* announcer_ = nullptr;
    DropArea* dropArea_ = nullptr;
    /// The exported folder where its path is shown.
    std::optional<std::filesystem::path> shownPath_;
    /// Where the focus goes once the alert is gone or the window is there.
    QPointer<QWidget> nextFocus_;
};
