#pragma once

#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <QClipboard>
#include <QLineEdit>

class TextLabel;

/// A field for a secret. What is typed is kept in memory that is wiped. The underlying line edit holds only a mask with
/// one bullet per character, so that the secret is never in its buffers, its undo history or its messages to assistive
/// technology. Text can be pasted, also with the middle button, but not copied, cut or dragged out, and input methods
/// are asked not to learn from it. Before the field receives any part of a secret, it keeps other programs out of the
/// process (ProcessSetup::keepOthersOut). It shows whether Caps Lock is on once a key has been used in it.
class SecureField final : public QLineEdit {
    Q_OBJECT

public:
    explicit SecureField(QWidget* parent = nullptr);

    /// Sets the text shown while the field is empty, which is also the accessible name.
    void setPrompt(const QString& prompt);

    /// Sets the text shown in the field while Caps Lock is on, which is then also the accessible description.
    void setCapsLockHint(const QString& hint);

    /// The secret. Valid until it changes.
    QStringView secret() const;

    /// Replaces the whole secret, wiping the old one. Does not emit secretEdited().
    void setSecret(QStringView secret);

    /// Replaces the characters from `start` up to but not including `end` by `text`, as if it were typed.
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
    // These would change the line edit without changing the secret.
    using QLineEdit::insert;
    using QLineEdit::paste;
    using QLineEdit::setText;

    void followLayoutDirection();
    void showCapsLock(bool isOn);
    void followCapsLock(const QKeyEvent& event);
    void type(QStringView text);
    void pasteFrom(QClipboard::Mode mode);
    void showMask();
    void followMask();
    void fitFont();

    TextLabel* const capsLockHint_;
    SecretText secret_;
    /// Whether the mask is being updated from the secret, and not the other way round.
    bool isShowingMask_ = false;
};
