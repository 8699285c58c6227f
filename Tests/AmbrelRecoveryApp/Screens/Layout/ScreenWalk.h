#pragma once

#include "../../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"

#include <QSize>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

/// Walks the real screens, over a real model and a scripted engine, through every state that a user can see. The
/// language is the system's at the time of the walk. A state that is never reached fails the test, or outside of one is
/// counted as an ad hoc failure of GoogleTest.
class ScreenWalk final : private RecoveryViewModelTestCase {
public:
    /// Called once for each state, as soon as it is drawn completely. `name` is lower case words with hyphens.
    using Visit = std::function<void(const QString& name, RecoveryRootView& view)>;

    ScreenWalk();
    ~ScreenWalk() override;

    /// Visits every state with a window of `size`, in device-independent pixels.
    void visitEveryState(const QSize& size, const Visit& visit);

private:
    void TestBody() override {}

    void open(const QSize& size);
    void visit(const QString& name);
    void cancel();
    void visitChoosing();
    void visitPreparing();
    void visitInspecting();
    void visitSnapshots();
    void visitExporting();
    void visitInspectionErrors();
    void startInspecting();

    /// What the background thread is told about the package.
    std::atomic<bool> isInCloud_ = false;
    /// Below zero where it is not known.
    std::atomic<double> percentDownloaded_ = -1;
    Visit visit_;
    std::unique_ptr<RecoveryRootView> view_;
};
