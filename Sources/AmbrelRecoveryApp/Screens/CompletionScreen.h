#pragma once

#include "AmbrelRecoveryApp/Screens/CompletionContent.h"

#include <QWidget>

class PrimaryRecoveryButton;
class SecondaryRecoveryButton;
class TextLabel;

/// The screen after an export.
class CompletionScreen final : public QWidget {
    Q_OBJECT

public:
    explicit CompletionScreen(QWidget* parent = nullptr);

    void apply(const CompletionContent& content);
    PrimaryRecoveryButton* revealButton() const { return reveal_; }

signals:
    void revealRequested();
    void startAgainRequested();

private:
    QWidget* makeCard();

    TextLabel* const title_;
    TextLabel* const exported_;
    PrimaryRecoveryButton* const reveal_;
    SecondaryRecoveryButton* const startAgain_;
};
