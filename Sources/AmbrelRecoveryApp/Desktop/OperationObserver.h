#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class OperationNotifier;
class RecoverySleepInhibitor;

/// Connects the workflow to the desktop: keeps the machine awake during a long operation, and notifies the user of its
/// end if the window is not active. Operations that the user cancelled are not reported. Main thread.
class OperationObserver final : public QObject {
    Q_OBJECT

public:
    /// All of them must outlive the observer, except for the window.
    OperationObserver(const RecoveryViewModel& model, QWidget* window, RecoverySleepInhibitor& sleepInhibitor,
                      OperationNotifier& notifications);

    /// Lets the machine sleep again and removes the notification.
    ~OperationObserver() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// The state of the workflow at one moment, as far as it shows how an operation ended.
    struct Look {
        RecoveryViewModel::Phase phase;
        bool isBusy;
        std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection;
        std::optional<RecoveryViewModel::PresentedError> error;
    };

    Look look() const;
    void scheduleLook();
    void lookAgain();
    /// The result of the operation that was running in `before` and has since ended, or std::nullopt if the user
    /// cancelled it.
    static std::optional<QString> outcome(const Look& before, const Look& after);
    void bringWindowForward();

    const RecoveryViewModel& model_;
    const QPointer<QWidget> window_;
    RecoverySleepInhibitor& sleepInhibitor_;
    OperationNotifier& notifications_;
    Look last_;
    bool isLookScheduled_ = false;
};
