#pragma once

#include <QObject>

class QKeyEvent;

/// Makes a held key act only once. The repeats of Return, Enter, Escape and Space reach no widget of the application,
/// so that one press does not carry over to what it opened: a panel, the next step, an alert. Only a Space that is
/// typed into a field repeats. Main thread.
class HeldKeys final : public QObject {
    Q_OBJECT

public:
    /// Applies to every window during the lifetime of the object.
    explicit HeldKeys(QObject* parent);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool isRepeat(const QKeyEvent& press) const;

    int releasedKey_ = 0;
    quint64 timeOfRelease_ = 0;
};
