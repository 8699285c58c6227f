#pragma once

#include "AmbrelRecoveryApp/Screens/JourneyRailContent.h"

#include <QWidget>

class QHBoxLayout;
class RailStepList;
class TextLabel;

/// The side rail: the brand, the three steps, and two badges.
class JourneyRail final : public QWidget {
    Q_OBJECT

public:
    explicit JourneyRail(QWidget* parent = nullptr);

    void apply(const JourneyRailContent& content);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* makeBrandBlock();

    TextLabel* const brand_;
    TextLabel* const product_;
    RailStepList* const steps_;
    TextLabel* const noAccount_;
    TextLabel* const readOnly_;
};
