#pragma once

#include "AmbrelRecoveryApp/Screens/ErrorAlertContent.h"

#include <QWidget>

#include <optional>

class PrimaryRecoveryButton;
class TextLabel;

/// Dims the window and shows an error in its middle until the user dismisses it: title, body and one button, which
/// Return and Escape press as well. While it is shown, the mouse and the keyboard reach nothing else in the
/// window. It is part of the window, so that it looks the same on every desktop.
class ErrorAlert final : public QWidget {
    Q_OBJECT

public:
    /// Covers `parent` and stays above everything else in it.
    explicit ErrorAlert(QWidget* parent);

    /// Shows the error, or hides the alert if there is none. An error with another id is presented as a new one.
    void apply(const std::optional<ErrorAlertContent>& content);
    void takeFocus();

signals:
    /// The user dismissed the alert. It stays until apply() hides it, so that further input reaches nothing behind it.
    void dismissed();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void present();
    void keepFocus(QWidget* focused);

    QWidget* const panel_;
    TextLabel* const title_;
    TextLabel* const body_;
    PrimaryRecoveryButton* const okay_;
    std::optional<ErrorAlertContent> content_;
};
