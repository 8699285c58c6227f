#pragma once

#include "AmbrelRecoveryApp/Controls/Card.h"
#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

class SecondaryRecoveryButton;
class SymbolView;
class TextLabel;

/// The chosen package, and the button that chooses one.
class PackageCard final : public Card {
    Q_OBJECT

public:
    explicit PackageCard(QWidget* parent = nullptr);

    void apply(const ChooseBackupContent::Package& content);
    SecondaryRecoveryButton* chooseButton() const { return choose_; }

private:
    SymbolView* const symbol_;
    TextLabel* const name_;
    TextLabel* const kind_;
    TextLabel* const hint_;
    SecondaryRecoveryButton* const choose_;
};
