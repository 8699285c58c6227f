#include "AmbrelRecoveryApp/Controls/SecureFieldAccessible.h"

#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <algorithm>

SecureFieldAccessible::SecureFieldAccessible(SecureField* field)
    : QAccessibleWidget(field, QAccessible::EditableText) {}

SecureField& SecureFieldAccessible::field() const {
    return *static_cast<SecureField*>(widget());
}

void* SecureFieldAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) {
        return static_cast<QAccessibleTextInterface*>(this);
    }
    if (type == QAccessible::EditableTextInterface) {
        return static_cast<QAccessibleEditableTextInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State SecureFieldAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.passwordEdit = true;
    state.selectableText = true;
    return state;
}

QString SecureFieldAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? field().text() : QAccessibleWidget::text(kind);
}

void SecureFieldAccessible::setText(QAccessible::Text kind, const QString& text) {
    if (kind == QAccessible::Value) {
        replaceText(0, characterCount(), text);
    } else {
        QAccessibleWidget::setText(kind, text);
    }
}

void SecureFieldAccessible::selection(int index, int* start, int* end) const {
    const bool isThere = index == 0 && field().hasSelectedText();
    *start = isThere ? field().selectionStart() : 0;
    *end = isThere ? field().selectionEnd() : 0;
}

int SecureFieldAccessible::selectionCount() const {
    return field().hasSelectedText() ? 1 : 0;
}

void SecureFieldAccessible::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void SecureFieldAccessible::removeSelection(int index) {
    if (index == 0) {
        field().deselect();
    }
}

void SecureFieldAccessible::setSelection(int index, int start, int end) {
    if (index == 0) {
        field().setSelection(start, end - start);
    }
}

int SecureFieldAccessible::cursorPosition() const {
    return field().cursorPosition();
}

void SecureFieldAccessible::setCursorPosition(int position) {
    field().setCursorPosition(position);
}

QString SecureFieldAccessible::text(int start, int end) const {
    const QString mask = field().text();
    return mask.mid(start, (end < 0 ? characterCount() : end) - start);
}

int SecureFieldAccessible::characterCount() const {
    return static_cast<int>(field().text().size());
}

QRect SecureFieldAccessible::characterRect(int /*offset*/) const {
    return rect();
}

int SecureFieldAccessible::offsetAtPoint(const QPoint& point) const {
    return field().cursorPositionAt(field().mapFromGlobal(point));
}

void SecureFieldAccessible::scrollToSubstring(int start, int /*end*/) {
    field().setCursorPosition(start);
}

QString SecureFieldAccessible::attributes(int /*offset*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void SecureFieldAccessible::deleteText(int start, int end) {
    replaceText(start, end, {});
}

void SecureFieldAccessible::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void SecureFieldAccessible::replaceText(int start, int end, const QString& text) {
    const SecretStackWiper wiper;
    if (!field().isEnabled()) {
        return;
    }
    const int first = std::clamp(start, 0, characterCount());
    field().replaceSecret(first, std::clamp(end, first, characterCount()), text);
}
