#pragma once

#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <QClipboard>
#include <QLineEdit>

class QLabel;

/// A field for a secret. What is typed is held in memory that is wiped; the line edit under it only ever holds a mask
/// of as many bullets, so that the secret is in none of its buffers, undo histories or messages to assistive
/// technology. It can be pasted into, also with the middle button, but neither copied nor cut nor dragged from, and
/// input methods are told not to learn from it. Before it takes the first of a secret, it keeps other programs out of
/// the process (ProcessSetup::keepOthersOut). It tells when Caps Lock is on, once a key was used in it.
class SecureField final : public QLineEdit {
    Q_OBJECT

public:
    explicit SecureField(QWidget* parent = nullptr);

    /// The text shown while the field is empty, which is the accessible name too.
    void setPrompt(const QString& prompt);

    /// The text shown in the field while Caps Lock is on, which is its accessible description meanwhile.
    void setCapsLockHint(const QString& hint);

    /// The secret. Valid until it changes.
    QStringView secret() const;

    /// Replaces the whole secret, wiping the old one. Emits nothing.
    void setSecret(QStringView secret);

    /// Puts `text` in the place of the characters from `start` up to `end`, as if it were typed.
    void replaceSecret(int start, int end, QStringView text);

signals:
    /// The user changed the secret.
    void secretEdited();

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // These would put text past the secret into the line edit.
    using QLineEdit::insert;
    using QLineEdit::paste;
    using QLineEdit::setText;

    void followLayoutDirection();
    void tellCapsLock(bool isOn);
    void followCapsLock(const QKeyEvent& event);
    void type(QStringView text);
    void pasteFrom(QClipboard::Mode mode);
    void showMask();
    void followMask();
    void fitFont();

    QLabel* const capsLockHint_;
    SecretText secret_;
    /// While the mask follows the secret and not the other way round.
    bool isShowingMask_ = false;
};
