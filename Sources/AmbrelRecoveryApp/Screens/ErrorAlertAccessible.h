#pragma once

#include <QAccessibleWidget>

class ErrorAlertDialog;

/// The error alert as assistive technology meets it: an alert, named by its title, that keeps everything else from use.
class ErrorAlertAccessible final : public QAccessibleWidget {
public:
    explicit ErrorAlertAccessible(ErrorAlertDialog* dialog);

    QAccessible::State state() const override;
};
