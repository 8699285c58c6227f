#pragma once

#include "AmbrelRecoveryApp/Screens/JourneyRailContent.h"

#include <QWidget>

class StepMark;
class TextLabel;

/// One step in the rail.
class RailStep final : public QWidget {
    Q_OBJECT

public:
    explicit RailStep(QWidget* parent = nullptr);

    void apply(const JourneyRailContent::Step& content);
    const JourneyRailContent::Step& content() const { return content_; }

private:
    void announceChange(const JourneyRailContent::Step& before);

    JourneyRailContent::Step content_;
    StepMark* const mark_;
    TextLabel* const title_;
};
