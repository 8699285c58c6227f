#pragma once

#include "AmbrelRecoveryApp/Desktop/OperationNotifier.h"

#include <QObject>

#include <chrono>

class DesktopNotification;

/// Shows notifications through the desktop's notification service. Shows nothing if there is no service, or if it
/// refuses or does not answer. Never blocks.
class DesktopNotifier final : public QObject, public OperationNotifier {
    Q_OBJECT

public:
    /// `limit` applies to the connection to the bus and to each answer of the service.
    explicit DesktopNotifier(std::chrono::milliseconds limit = std::chrono::seconds(10));

    void show(const QString& text, std::function<void()> activated) override;
    void withdraw() override;

private:
    const std::chrono::milliseconds limit_;
    /// A child of this object, like the withdrawn notifications that still await an answer.
    DesktopNotification* current_ = nullptr;
};
