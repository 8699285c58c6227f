#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QFont>
#include <QWidget>

/// A symbol on a tinted shape: the brand's rounded square, the circle of a completed export.
class SymbolBadge final : public QWidget {
    Q_OBJECT

public:
    struct Look {
        RecoverySymbol symbol = RecoverySymbol::checkmark;
        /// Of the symbol; the shape has the same colour at `fillOpacity`.
        QColor color;
        double fillOpacity = 0;
        /// Measures in device-independent pixels.
        int size = 0;
        int cornerRadius = 0;
        int symbolSize = 0;
        QFont::Weight symbolWeight = QFont::Normal;
    };

    explicit SymbolBadge(const Look& look, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Look look_;
};
