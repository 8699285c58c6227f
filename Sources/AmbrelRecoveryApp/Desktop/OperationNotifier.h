#pragma once

#include <QString>

#include <functional>

/// Notifies the user while another window is active; shows at most one notification at a time. Main thread.
class OperationNotifier {
public:
    OperationNotifier() = default;
    OperationNotifier(const OperationNotifier&) = delete;
    OperationNotifier& operator=(const OperationNotifier&) = delete;
    virtual ~OperationNotifier() = default;

    /// Shows `text` (plain text), replacing an earlier notification, if the desktop supports notifications. Calls
    /// `activated` when the user clicks it.
    virtual void show(const QString& text, std::function<void()> activated) = 0;

    /// Removes the notification. Does nothing if there is none.
    virtual void withdraw() = 0;
};
