#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include <QObject>
#include <QWidget>

#include <memory>
#include <optional>

/// Watches the workflow for the desktop: reports when the machine has to stay awake, and what the user should be
/// notified of because the window is not active. Operations that the user cancelled are not reported. Main thread.
class OperationObserver final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the observer.
    OperationObserver(const RecoveryViewModel& model, QWidget& window);

    /// Raises the window above all others and makes it active.
    void bringWindowForward();

signals:
    /// A long operation has begun; `reason` names it for the user.
    void operationBegan(const QString& reason);
    /// The operation has ended, in whatever way.
    void operationEnded();
    /// The user should be notified of `text`, which states how the operation ended.
    void notificationWanted(const QString& text);
    /// The user has seen the window, or a new operation has begun.
    void notificationOutdated();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// The state of the workflow at one moment, as far as it shows how an operation ended.
    struct Look {
        RecoveryViewModel::Phase phase;
        std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection;
        std::optional<RecoveryViewModel::PresentedError> error;
    };

    Look look() const;
    void scheduleLook();
    void lookAgain();
    /// The result of the operation that was running in `before` and has since ended, or std::nullopt if the user
    /// cancelled it.
    static std::optional<QString> outcome(const Look& before, const Look& after);

    const RecoveryViewModel& model_;
    QWidget& window_;
    Look last_;
    bool isLookScheduled_ = false;
};
