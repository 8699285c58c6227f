#pragma once

#include <QAccessible>
#include <QTimer>
#include <QWidget>

/// Has assistive technology say a text that is not tied to where the focus is. Takes no place and is not seen; in the
/// accessibility tree it is a notification, there only as long as it takes to be read. What is still there when
/// assistive technology comes, as it does after the start of the application, is announced to it then. Main thread.
class Announcer final : public QWidget, private QAccessible::ActivationObserver {
    Q_OBJECT

public:
    explicit Announcer(QWidget* parent);
    ~Announcer() override;

    /// Announces `text`, which takes the place of an earlier one that is still there.
    void announce(const QString& text);

    /// Takes back what is still there.
    void withdraw();

private:
    void accessibilityActiveChanged(bool isActive) override;
    void announceAgain();

    QTimer lifetime_;
};
