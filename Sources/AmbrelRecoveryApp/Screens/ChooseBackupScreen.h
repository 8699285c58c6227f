#pragma once

#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

#include <QWidget>

#include <optional>

class CredentialCard;
class PackageCard;
class PreparationCard;
class PrimaryRecoveryButton;
class ProgressRow;
class SecureField;
class TextLabel;

/// The screen on which a package is chosen, unlocked and inspected.
class ChooseBackupScreen final : public QWidget {
    Q_OBJECT

public:
    explicit ChooseBackupScreen(QWidget* parent = nullptr);

    void apply(const ChooseBackupContent& content);

    SecureField* secretField() const;
    QWidget* chooseButton() const;
    PrimaryRecoveryButton* inspectButton() const { return inspect_; }
    /// The cancel button of the running operation.
    QWidget* cancelButton() const;

signals:
    void chooseRequested();
    /// The user chose the factor at `index` of allRecoveryAppFactors.
    void factorChosen(int index);
    void secretEdited();
    void inspectRequested();
    void cancelRequested();

private:
    std::optional<ChooseBackupContent> content_;
    PackageCard* const package_;
    PreparationCard* const preparation_;
    CredentialCard* const credential_;
    PrimaryRecoveryButton* const inspect_;
    ProgressRow* const inspecting_;
    TextLabel* const footnote_;
};
