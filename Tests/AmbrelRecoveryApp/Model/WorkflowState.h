#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// Everything that a model publishes, to be compared.
struct WorkflowState {
    RecoveryViewModel::Phase phase = RecoveryViewModel::Phase::chooseBackup;
    std::string package;
    AmbrelRecoveryAppFactor factor = AmbrelRecoveryAppFactor::backupPassphrase;
    std::string credential;
    /// The highest writer epoch in the inspection, by which tests tell inspections apart; 0 for none.
    std::uint64_t inspection = 0;
    std::string selection;
    std::string destination;
    /// The recovered items of the report, by which tests tell reports apart; 0 for none.
    std::uint64_t report = 0;
    std::optional<double> progress;
    std::string errorTitle;
    std::string errorBody;
    /// The first error is 1; 0 for none.
    std::size_t errorNumber = 0;
    bool canInspect = false;
    bool canExport = false;

    bool operator==(const WorkflowState&) const = default;

    /// What `model` publishes now. `errors` are the identities of the errors so far; that of a new one is added.
    static WorkflowState of(const RecoveryViewModel& model, std::vector<QUuid>& errors);
};

std::ostream& operator<<(std::ostream& stream, const WorkflowState& state);
