#pragma once

#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"

#include <QWidget>

class ProgressIndicator;
class QAbstractButton;
class TextLabel;

/// A running operation: its progress, its title, and the button that cancels it.
class ProgressRow final : public QWidget {
    Q_OBJECT

public:
    explicit ProgressRow(QWidget* parent = nullptr);

    void apply(const ProgressRowContent& content);
    QWidget* cancelButton() const;

signals:
    void cancelled();

private:
    ProgressIndicator* const indicator_;
    TextLabel* const percent_;
    TextLabel* const title_;
    QAbstractButton* const cancel_;
};
