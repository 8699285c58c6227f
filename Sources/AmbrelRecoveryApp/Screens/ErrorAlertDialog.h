#pragma once

#include "AmbrelRecoveryApp/Screens/ErrorAlertContent.h"

#include <QDialog>

class PrimaryRecoveryButton;
class TextLabel;

/// The panel of an error: title, body and one button. Return and Escape dismiss it as the button does. It is part of
/// the window, so that it looks the same on every desktop.
class ErrorAlertDialog final : public QDialog {
    Q_OBJECT

public:
    static constexpr int cornerRadius = 16;

    explicit ErrorAlertDialog(QWidget* parent);

    void apply(const ErrorAlertContent& content);
    void takeFocus();

protected:
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TextLabel* const title_;
    TextLabel* const body_;
    PrimaryRecoveryButton* const okay_;
};
