#pragma once

#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

#include <QWidget>

#include <optional>

class CredentialCard;
class PackageCard;
class PreparationCard;
class PrimaryRecoveryButton;
class ProgressRow;
class SecondaryRecoveryButton;
class SecureField;
class SegmentedPicker;
class TextLabel;

/// The screen on which a package is chosen, unlocked and inspected.
class ChooseBackupScreen final : public QWidget {
    Q_OBJECT

public:
    explicit ChooseBackupScreen(QWidget* parent = nullptr);

    void apply(const ChooseBackupContent& content);

    SecondaryRecoveryButton* chooseButton() const;
    /// Offers allRecoveryAppFactors, in their order.
    SegmentedPicker* factorPicker() const;
    SecureField* secretField() const;
    PrimaryRecoveryButton* inspectButton() const { return inspect_; }
    /// The cancel button of the running operation.
    QWidget* cancelButton() const;

private:
    std::optional<ChooseBackupContent> content_;
    PackageCard* const package_;
    PreparationCard* const preparation_;
    CredentialCard* const credential_;
    PrimaryRecoveryButton* const inspect_;
    ProgressRow* const inspecting_;
    TextLabel* const footnote_;
};
