#pragma once

#include "ScriptedEngine.h"
#include "WorkflowDriver.h"
#include "WorkflowState.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What the workflow promises: for each operation and each way in which it can end, what the model publishes, in which
/// order, and what the engine is given.
namespace WorkflowTable {

struct Operation;

/// What a model is expected to be.
struct Expected {
    struct Session {
        AmbrelRecoveryAppFactor factor;
        std::string credential;

        bool operator==(const Session&) const = default;
    };

    /// The published properties, without what follows from them.
    WorkflowState shown;
    std::optional<Session> session;
    std::vector<ScriptedEngine::Run> runs;
    int cancellations = 0;
    /// Of the current operation.
    int number = 0;
    std::size_t errors = 0;
    /// As a user chooses in it.
    std::filesystem::path folder;

    bool isBusy() const;
    bool canInspect() const;
    bool canExport() const;
    /// All that is published.
    WorkflowState published() const;

    /// Does the next operation. Gives what is published before each change that is announced, and after the last.
    std::vector<WorkflowState> take(const Operation& operation);

    /// Whether the operation would do all that it can do, and leave anything else behind than before.
    bool wouldGoOnWith(const Operation& operation) const;
};

/// One assignment of a published property, which is announced, or a silent change behind it.
struct Change {
    std::function<void(Expected&)> apply;
    bool isAnnounced = true;
};

/// Changes that come one after the other where the guard holds, and none where it does not.
struct Step {
    std::function<bool(const Expected&)> guard;
    std::vector<Change> changes;
};

struct Operation {
    const char* name;
    std::function<void(WorkflowDriver&)> perform;
    std::vector<Step> steps;
};

/// Every operation with every outcome.
const std::vector<Operation>& operations();

/// The one of this name. Throws std::out_of_range.
const Operation& operation(const std::string& name);

} // namespace WorkflowTable
