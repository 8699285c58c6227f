#pragma once

#include "WorkflowDriver.h"
#include "WorkflowTable.h"

#include <filesystem>
#include <string>
#include <vector>

/// A model that is led through operations, beside what the table says of it.
class WorkflowWalk {
public:
    /// `folder` as WorkflowDriver wants it. At most WorkflowDriver::longestWalk operations.
    explicit WorkflowWalk(const std::filesystem::path& folder) : driver_(folder) { expected_.folder = folder; }

    /// Lets the model do it, and compares everything published at each announcement and afterwards, and what the engine
    /// was given. False where something is not as expected, which is a failure of the test.
    bool take(const WorkflowTable::Operation& operation);

    /// The same comparison once more, for what came later.
    bool isAsExpected();

    /// What is published before each change that the last operation announced, and after the last of them.
    const std::vector<WorkflowState>& expectedStates() const { return states_; }

private:
    bool areStatesExpected();
    bool isEngineExpected() const;

    WorkflowDriver driver_;
    WorkflowTable::Expected expected_;
    std::vector<WorkflowState> states_;
    std::string history_;
};
