#pragma once

#include <QString>

#include <functional>

/// What the desktop tells the user while the user looks at something else: one notification at a time. Main thread.
class OperationNotifier {
public:
    OperationNotifier() = default;
    OperationNotifier(const OperationNotifier&) = delete;
    OperationNotifier& operator=(const OperationNotifier&) = delete;
    virtual ~OperationNotifier() = default;

    /// Shows `text`, plain text, in the place of an earlier notification, as far as the desktop shows any. `activated`
    /// is called when the user picks it.
    virtual void show(const QString& text, std::function<void()> activated) = 0;

    /// Takes the notification away. Does nothing where there is none.
    virtual void withdraw() = 0;
};
