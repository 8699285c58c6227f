#include "AmbrelRecoveryApp/Screens/RailStepList.h"

#include "AmbrelRecoveryApp/Screens/RailStep.h"

#include <QVBoxLayout>

RailStepList::RailStepList(QWidget* parent)
    : QWidget(parent), steps_{new RailStep(this), new RailStep(this), new RailStep(this)} {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(20);
    for (RailStep* const step : steps_) {
        layout->addWidget(step);
    }
}

void RailStepList::apply(const std::array<JourneyRailContent::Step, 3>& content) {
    for (std::size_t index = 0; index < steps_.size(); ++index) {
        steps_[index]->apply(content[index]);
    }
}
