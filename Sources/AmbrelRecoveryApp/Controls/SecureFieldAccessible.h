#pragma once

#include <QAccessibleWidget>

class SecureField;

/// The accessible interface of a secure field: a password field that can be edited, but of which only the mask can be
/// read.
class SecureFieldAccessible final : public QAccessibleWidget,
                                    public QAccessibleTextInterface,
                                    public QAccessibleEditableTextInterface {
public:
    explicit SecureFieldAccessible(SecureField* field);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    SecureField& field() const;
};
