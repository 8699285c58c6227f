#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QAbstractButton>

/// A button of a panel that is only a symbol, raised a little. Its label is the accessible name and the tooltip.
class PanelButton final : public QAbstractButton {
    Q_OBJECT

public:
    PanelButton(RecoverySymbol symbol, const QString& label, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const RecoverySymbol symbol_;
};
