#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QAbstractButton>

/// A plain button that shows only a symbol. Its label is the accessible name and the tooltip. Return does not press it.
class IconButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit IconButton(RecoverySymbol symbol, QWidget* parent = nullptr);

    void setLabel(const QString& label);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const RecoverySymbol symbol_;
};
