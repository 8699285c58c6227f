#pragma once

#include <QObject>

class QKeyEvent;

/// Has a key that is held act once. The repeats of Return, Enter, Escape and Space reach no widget of the application,
/// so that one press does not walk on to what it has brought up: a panel, the next step, an alert. Only a Space that is
/// typed into a field repeats. Main thread.
class HeldKeys final : public QObject {
    Q_OBJECT

public:
    /// In force for every window for as long as the object lives.
    explicit HeldKeys(QObject* parent);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool isRepeat(const QKeyEvent& press) const;

    int releasedKey_ = 0;
    quint64 timeOfRelease_ = 0;
};
