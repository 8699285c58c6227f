#pragma once

#include "AmbrelRecoveryApp/Controls/Card.h"
#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

class SecureField;
class SegmentedPicker;
class TextLabel;

/// The choice of the kind of secret, and the field to type it in.
class CredentialCard final : public Card {
    Q_OBJECT

public:
    explicit CredentialCard(QWidget* parent = nullptr);

    void apply(const ChooseBackupContent::Credential& content);
    /// Offers allRecoveryAppFactors, in their order.
    SegmentedPicker* factorPicker() const { return picker_; }
    SecureField* secretField() const { return field_; }

private:
    TextLabel* const title_;
    TextLabel* const body_;
    TextLabel* const kindLabel_;
    SegmentedPicker* const picker_;
    SecureField* const field_;
};
