#include "AmbrelRecoveryApp/Controls/SecureField.h"

#include "AmbrelRecoveryApp/Controls/CapsLock.h"
#include "AmbrelRecoveryApp/Controls/ClipboardSecret.h"
#include "AmbrelRecoveryApp/Controls/FittedText.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Secrets/ProcessSetup.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <limits>
#include <utility>

namespace {

constexpr int fieldHeight = 42;
constexpr int fontSize = 15;
constexpr int hintFontSize = 12;
constexpr qreal maskTracking = 3.6;
/// Of which a line edit itself keeps 2 and the style sheet the rest.
constexpr int horizontalPadding = 14;
constexpr qreal cornerRadius = 11;

QString maskOf(int count) {
    return QString(count, QChar(0x2022));
}

/// Whether the event types text, by the rules of Qt's own text controls.
bool isTyping(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) {
        return false;
    }
    const QChar first = text.front();
    if (first.category() == QChar::Other_Format) {
        return true;
    }
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier || modifiers == (Qt::ControlModifier | Qt::ShiftModifier)) {
        return false;
    }
    return first.isPrint() || first.category() == QChar::Other_PrivateUse || first.isHighSurrogate();
}

bool wouldTakeSecretOut(const QKeyEvent& event) {
    return event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Undo) ||
           event.matches(QKeySequence::Redo);
}

} // namespace

SecureField::SecureField(QWidget* parent)
    : QLineEdit(parent),
      capsLockHint_(new TextLabel(recoveryFont(hintFontSize, QFont::DemiBold), RecoveryPalette::primary(), this)) {
    setEchoMode(QLineEdit::Password);
    setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    setMaxLength(std::numeric_limits<int>::max());
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    setDragEnabled(false);
    setFont(recoveryFont(fontSize, QFont::Normal));
    setFixedHeight(TextScale::scaled(fieldHeight));
    // paintEvent() draws the field's background and border. The mask is drawn with the bullets that it consists of.
    setStyleSheet(QStringLiteral("QLineEdit { background: transparent; border: none; padding: 0 12px;"
                                 " lineedit-password-character: 8226; lineedit-password-mask-delay: 0; }"));
    QPalette colors = RecoveryPalette::ofToolkit();
    colors.setColor(QPalette::Text, RecoveryPalette::primary());
    colors.setColor(QPalette::Disabled, QPalette::PlaceholderText,
                    RecoveryPalette::withOpacity(RecoveryPalette::muted(), RecoveryPalette::disabledOpacity));
    setPalette(colors);
    capsLockHint_->setAttribute(Qt::WA_TransparentForMouseEvents);
    capsLockHint_->hide();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(horizontalPadding, 0, horizontalPadding, 0);
    layout->addStretch();
    layout->addWidget(capsLockHint_);
    followLayoutDirection();
    connect(this, &QLineEdit::textChanged, this, &SecureField::followMask);
    connect(this, &QLineEdit::textChanged, this, &SecureField::fitFont);
}

void SecureField::setPrompt(const QString& prompt) {
    setPlaceholderText(prompt);
    setAccessibleName(prompt);
    fitFont();
}

void SecureField::setCapsLockHint(const QString& hint) {
    capsLockHint_->setText(hint);
    showCapsLock(!capsLockHint_->isHidden());
}

/// Shown beside the mask, and set as the accessible description, which screen readers read out when it changes.
void SecureField::showCapsLock(bool isOn) {
    capsLockHint_->setVisible(isOn);
    const int space = isOn ? capsLockHint_->sizeHint().width() + horizontalPadding : 0;
    const bool isMirrored = isRightToLeft();
    setTextMargins(isMirrored ? space : 0, 0, isMirrored ? 0 : space, 0);
    setAccessibleDescription(isOn ? capsLockHint_->text() : QString());
}

void SecureField::followCapsLock(const QKeyEvent& event) {
    const std::optional<bool> isOn = CapsLock::stateAfter(event);
    if (isOn && *isOn == capsLockHint_->isHidden()) {
        showCapsLock(*isOn);
    }
}

QStringView SecureField::secret() const {
    return secret_.view();
}

void SecureField::setSecret(QStringView secret) {
    secret_ = SecretText(secret);
    showMask();
}

void SecureField::showMask() {
    isShowingMask_ = true;
    setText(maskOf(secret_.characterCount()));
    isShowingMask_ = false;
}

void SecureField::replaceSecret(int start, int end, QStringView text) {
    // Assistive technology can call this without the field having the focus.
    ProcessSetup::keepOthersOut();
    secret_.replace(start, end, text);
    isShowingMask_ = true;
    if (end > start) {
        setSelection(start, end - start);
    } else {
        deselect();
        setCursorPosition(start);
    }
    const int masked = static_cast<int>(this->text().size()) - (end - start);
    insert(maskOf(secret_.characterCount() - masked));
    isShowingMask_ = false;
    emit secretEdited();
}

void SecureField::type(QStringView text) {
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    replaceSecret(start, hasSelectedText() ? selectionEnd() : start, text);
}

void SecureField::pasteFrom(QClipboard::Mode mode) {
    const SecretText line = ClipboardSecret::line(mode);
    if (!line.view().isEmpty()) {
        type(line.view());
    }
}

void SecureField::keyPressEvent(QKeyEvent* event) {
    const SecretStackWiper wiper;
    followCapsLock(*event);
    if (event->matches(QKeySequence::Paste)) {
        const bool isOfSelection = event->key() == Qt::Key_Insert && event->modifiers().testFlag(Qt::ControlModifier);
        pasteFrom(isOfSelection ? QClipboard::Selection : QClipboard::Clipboard);
    } else if (isTyping(*event)) {
        type(event->text());
    } else if (!wouldTakeSecretOut(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
}

void SecureField::keyReleaseEvent(QKeyEvent* event) {
    followCapsLock(*event);
    QLineEdit::keyReleaseEvent(event);
}

void SecureField::focusInEvent(QFocusEvent* event) {
    // Whatever is typed or pasted from now on is a secret, and no secret was in the process before.
    ProcessSetup::keepOthersOut();
    QLineEdit::focusInEvent(event);
}

void SecureField::focusOutEvent(QFocusEvent* event) {
    // Without the focus, the state of the key is unknown.
    showCapsLock(false);
    QLineEdit::focusOutEvent(event);
}

void SecureField::inputMethodEvent(QInputMethodEvent* event) {
    const SecretStackWiper wiper;
    const int start = cursorPosition() + event->replacementStart();
    if (event->replacementLength() > 0 && start >= 0) {
        setSelection(start, event->replacementLength());
    }
    // Text that is still being composed is not shown, because it would reveal the secret.
    if (!event->commitString().isEmpty()) {
        type(event->commitString());
    }
    event->accept();
}

void SecureField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection()) {
        const SecretStackWiper wiper;
        deselect();
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        pasteFrom(QClipboard::Selection);
        event->accept();
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void SecureField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        RoundedPanel::paint(painter, rect(), cornerRadius, RecoveryPalette::input(),
                            hasFocus() ? RecoveryPalette::copper() : RecoveryPalette::line());
    }
    QLineEdit::paintEvent(event);
}

void SecureField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        followLayoutDirection();
    }
}

/// Bullets have no direction, and a line edit treats such text as left-to-right. It can be changed only by the key
/// event that switches the direction.
void SecureField::followLayoutDirection() {
    QKeyEvent direction(QEvent::KeyPress, isRightToLeft() ? Qt::Key_Direction_R : Qt::Key_Direction_L, Qt::NoModifier);
    QLineEdit::keyPressEvent(&direction);
    showCapsLock(!capsLockHint_->isHidden());
}

/// Removes from the secret what the line edit deleted from the mask. The line edit handles deletions itself, and the
/// deleted characters always followed the position where its cursor is now.
void SecureField::followMask() {
    if (isShowingMask_) {
        return;
    }
    const int deleted = secret_.characterCount() - static_cast<int>(text().size());
    if (deleted <= 0) {
        showMask();
        return;
    }
    secret_.replace(cursorPosition(), cursorPosition() + deleted, {});
    emit secretEdited();
}

/// Bullets are spaced wider than letters, so that they can be counted. A prompt that is too wide is shown smaller.
void SecureField::fitFont() {
    setFont(text().isEmpty() ? FittedText::font(placeholderText(), recoveryFont(fontSize, QFont::Normal),
                                                width() - 2 * horizontalPadding, fontSize)
                             : recoveryFont(fontSize, QFont::Normal, maskTracking));
}

void SecureField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    fitFont();
}
