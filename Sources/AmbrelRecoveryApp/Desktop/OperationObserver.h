#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class OperationNotifier;
class RecoverySleepInhibitor;

/// Watches the workflow for the desktop's sake: keeps the machine awake while a long operation runs, and tells of the
/// end of one while the window is not the active one. It tells of no operation that the user cancelled. Main thread.
class OperationObserver final : public QObject {
    Q_OBJECT

public:
    /// All of them must outlive the guard, but for the window.
    OperationObserver(const RecoveryViewModel& model, QWidget* window, RecoverySleepInhibitor& sleepInhibitor,
                      OperationNotifier& notifications);

    /// Lets the machine sleep again and takes the notification away.
    ~OperationObserver() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// What of the workflow tells how an operation ended, as it was at one moment.
    struct Look {
        RecoveryViewModel::Phase phase;
        bool isBusy;
        std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection;
        std::optional<RecoveryViewModel::PresentedError> error;
    };

    Look look() const;
    void scheduleLook();
    void lookAgain();
    /// What came of the operation that ran at `before` and has ended since, or none where the user cancelled it.
    static std::optional<QString> outcome(const Look& before, const Look& after);
    void bringWindowForward();

    const RecoveryViewModel& model_;
    const QPointer<QWidget> window_;
    RecoverySleepInhibitor& sleepInhibitor_;
    OperationNotifier& notifications_;
    Look last_;
    bool isLookScheduled_ = false;
};
