#pragma once

#include "AmbrelRecoveryApp/Screens/ErrorAlertContent.h"

#include <QWidget>

#include <optional>

class ErrorAlertDialog;

/// Dims the window and shows an error in its middle until the user has taken note. While it is shown nothing else in
/// the window can be clicked or takes the focus.
class ErrorAlert final : public QWidget {
    Q_OBJECT

public:
    /// Covers `parent`, and stays above what else is in it.
    explicit ErrorAlert(QWidget* parent);

    /// Shows the error, or hides where there is none. An error with another identity is shown anew.
    void apply(const std::optional<ErrorAlertContent>& content);
    void takeFocus();

signals:
    /// The user has taken note.
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
