#pragma once

#include "AmbrelRecoveryApp/Desktop/OperationNotifier.h"

#include <QObject>

#include <chrono>

class DesktopNotification;

/// Notifications through the desktop's notification service. Where there is none, or it refuses or does not answer,
/// nothing is shown; nothing here waits.
class DesktopNotifier final : public QObject, public OperationNotifier {
    Q_OBJECT

public:
    /// `limit` is how long the bus has, and the service for each of its answers.
    explicit DesktopNotifier(std::chrono::milliseconds limit = std::chrono::seconds(10));

    void show(const QString& text, std::function<void()> activated) override;
    void withdraw() override;

private:
    const std::chrono::milliseconds limit_;
    /// A child of this object, as the withdrawn ones are that still await an answer.
    DesktopNotification* current_ = nullptr;
};
