#pragma once

#include <QObject>

/// Remembers whether the user last used the keyboard or a pointer, in any window of the application. Main thread.
class LastInput final : public QObject {
    Q_OBJECT

public:
    /// Whether the last input was a key that navigates or presses something; initially false. Input before the first
    /// call is not seen. When the return value changes, the control with the focus is repainted.
    static bool wasNavigationKey();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    explicit LastInput(QObject* application);
    void update(bool isNavigationKey);

    bool wasNavigationKey_ = false;
};
