#pragma once

#include "AmbrelRecoveryApp/Screens/ErrorAlertContent.h"

#include <QWidget>

#include <optional>

class ErrorAlertDialog;

/// Dims the window and shows an error in its middle until the user dismisses it. While it is shown, nothing else in the
/// window can be clicked or get the focus.
class ErrorAlert final : public QWidget {
    Q_OBJECT

public:
    /// Covers `parent` and stays above everything else in it.
    explicit ErrorAlert(QWidget* parent);

    /// Shows the error, or hides the alert if there is none. An error with another id is presented as a new one.
    void apply(const std::optional<ErrorAlertContent>& content);
    void takeFocus();

signals:
    /// The user dismissed the alert.
    void dismissed();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void cover();
    void leaveFocus();
    void keepFocus(QWidget* focused);

    ErrorAlertDialog* const dialog_;
    std::optional<ErrorAlertContent> content_;
};
