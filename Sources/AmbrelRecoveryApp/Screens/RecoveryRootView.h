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

/// The whole content of the window: a side rail, the screen of the current step, and the error alert. It shows the
/// state of the model and turns user input into calls to the model. Main thread.
class RecoveryRootView final : public QWidget {
    Q_OBJECT

public:
    /// `model` must outlive the view.
    explicit RecoveryRootView(RecoveryViewModel& model, QWidget* parent = nullptr);

    /// Shows the path of the exported folder on the last screen, so that the user can find it. Does nothing on another
    /// screen or if `folder` is not that folder.
    void showPath(const std::filesystem::path& folder);

    /// The path that showPath() shows, or std::nullopt if none is shown.
    const std::optional<std::filesystem::path>& shownPath() const { return shownPath_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void connectControls();
    void connectButtons();
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
    void pressMainButton();
    void inspect();

    RecoveryViewModel& model_;
    /// The state that is shown.
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
    /// The exported folder while its path is shown.
    std::optional<std::filesystem::path> shownPath_;
    /// Gets the focus once the alert is dismissed or the window is shown.
    QPointer<QWidget> nextFocus_;
};
