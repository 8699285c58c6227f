#pragma once

#include <QAccessible>
#include <QTimer>
#include <QWidget>

/// Announces text to assistive technology, independently of the focus. Takes no space and is invisible; in the
/// accessibility tree it is a notification that exists only as long as it takes to be read. If assistive technology
/// starts while there is an announcement, as it does after the start of the application, the announcement is repeated
/// then. Main thread.
class Announcer final : public QWidget, private QAccessible::ActivationObserver {
    Q_OBJECT

public:
    explicit Announcer(QWidget* parent);
    ~Announcer() override;

    /// Announces `text`, replacing an announcement that still exists.
    void announce(const QString& text);

    /// Withdraws an announcement that still exists.
    void withdraw();

private:
    void accessibilityActiveChanged(bool isActive) override;

    QTimer lifetime_;
};
