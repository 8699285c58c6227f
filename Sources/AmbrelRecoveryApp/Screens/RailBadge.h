#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QWidget>

class TextLabel;

/// A badge at the bottom of the rail: a symbol and a text.
class RailBadge final : public QWidget {
    Q_OBJECT

public:
    explicit RailBadge(RecoverySymbol symbol, QWidget* parent = nullptr);

    void setText(const QString& text);

private:
    TextLabel* const text_;
};
