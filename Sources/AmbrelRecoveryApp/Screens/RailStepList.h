#pragma once

#include "AmbrelRecoveryApp/Screens/JourneyRailContent.h"

#include <QWidget>

#include <array>

class RailStep;

/// The steps in the rail, one below the other.
class RailStepList final : public QWidget {
    Q_OBJECT

public:
    explicit RailStepList(QWidget* parent = nullptr);

    void apply(const std::array<JourneyRailContent::Step, 3>& content);

private:
    const std::array<RailStep*, 3> steps_;
};
