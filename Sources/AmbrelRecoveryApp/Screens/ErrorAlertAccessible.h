#pragma once

#include <QAccessibleWidget>

class ErrorAlertDialog;

/// The accessible interface of the error alert: a modal alert, named by its title.
class ErrorAlertAccessible final : public QAccessibleWidget {
public:
    explicit ErrorAlertAccessible(ErrorAlertDialog* dialog);

    QAccessible::State state() const override;
};
