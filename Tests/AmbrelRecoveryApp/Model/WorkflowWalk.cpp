#include "WorkflowWalk.h"

#include <gtest/gtest.h>

#include <algorithm>

bool WorkflowWalk::take(const WorkflowTable::Operation& operation) {
    history_ += (history_.empty() ? "" : "; ") + std::string(operation.name);
    states_ = expected_.take(operation);
    driver_.begin(expected_.number);
    operation.perform(driver_);
    driver_.waitForAnnouncements(states_.size() - 1);
    return isAsExpected();
}

bool WorkflowWalk::isAsExpected() {
    return areStatesExpected() && isEngineExpected();
}

bool WorkflowWalk::areStatesExpected() {
    std::vector<WorkflowState> states = driver_.announced();
    states.push_back(driver_.state());
    if (states == states_) {
        return true;
    }
    const auto [found, expected] = std::ranges::mismatch(states, states_);
    ADD_FAILURE() << history_ << ": " << states.size() - 1 << " announcements for " << states_.size() - 1
                  << "; before the one with index " << found - states.begin() << "\n"
                  << (found == states.end() ? "nothing" : testing::PrintToString(*found)) << "\ninstead of\n"
                  << (expected == states_.end() ? "nothing" : testing::PrintToString(*expected));
    return false;
}

bool WorkflowWalk::isEngineExpected() const {
    const bool areRunsExpected = driver_.engine().runs() == expected_.runs;
    EXPECT_TRUE(areRunsExpected) << history_ << ": " << driver_.engine().runs().size() << " runs of the engine for "
                                 << expected_.runs.size() << ", or others";
    EXPECT_EQ(driver_.engine().cancellations(), expected_.cancellations) << history_;
    return areRunsExpected && driver_.engine().cancellations() == expected_.cancellations;
}
