#pragma once

#include "AmbrelRecoveryApp/Controls/Card.h"
#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

class ProgressRow;
class TextLabel;

/// Shows the progress while the package is made readable.
class PreparationCard final : public Card {
    Q_OBJECT

public:
    explicit PreparationCard(QWidget* parent = nullptr);

    void apply(const ChooseBackupContent::Preparation& content);
    QWidget* cancelButton() const;

private:
    TextLabel* const title_;
    TextLabel* const body_;
    ProgressRow* const progress_;
};
