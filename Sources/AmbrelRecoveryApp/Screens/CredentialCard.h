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
    SecureField* secretField() const { return field_; }

signals:
    /// The user chose the factor at `index` of allRecoveryAppFactors.
    void factorChosen(int index);
    /// The user changed the secret in the field.
    void secretEdited();

private:
    TextLabel* const title_;
    TextLabel* const body_;
    TextLabel* const kindLabel_;
    SegmentedPicker* const picker_;
    SecureField* const field_;
};
