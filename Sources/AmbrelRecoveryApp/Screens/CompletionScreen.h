#pragma once

#include "AmbrelRecoveryApp/Screens/CompletionContent.h"

#include <QWidget>

#include <filesystem>
#include <optional>

class PathView;
class PrimaryRecoveryButton;
class SecondaryRecoveryButton;
class TextLabel;

/// The screen after an export.
class CompletionScreen final : public QWidget {
    Q_OBJECT

public:
    explicit CompletionScreen(QWidget* parent = nullptr);

    void apply(const CompletionContent& content);
    /// Shows the path of the exported folder, or hides it if there is none to show.
    void applyPath(const std::optional<std::filesystem::path>& folder);
    /// Selects the shown path and gives it the focus.
    void selectPath();
    PrimaryRecoveryButton* revealButton() const { return reveal_; }
    SecondaryRecoveryButton* chooseAnotherButton() const { return chooseAnother_; }

private:
    QWidget* makeCard();

    TextLabel* const title_;
    TextLabel* const exported_;
    TextLabel* const pathLabel_;
    PathView* const path_;
    PrimaryRecoveryButton* const reveal_;
    SecondaryRecoveryButton* const chooseAnother_;
};
