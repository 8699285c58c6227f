#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QFont>
#include <QWidget>

/// A symbol on a tinted shape, such as the brand's rounded square or the circle of a completed export.
class SymbolBadge final : public QWidget {
    Q_OBJECT

public:
    struct Look {
        RecoverySymbol symbol = RecoverySymbol::checkmark;
        /// The color of the symbol; the shape has the same color at `fillOpacity`.
        QColor color;
        double fillOpacity = 0;
        /// Sizes in device-independent pixels.
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
