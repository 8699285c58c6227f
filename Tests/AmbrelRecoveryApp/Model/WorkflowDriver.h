#pragma once

#include "../Support/RecoveryViewModelTestCase.h"
#include "ScriptedEngine.h"
#include "WorkflowState.h"

#include <condition_variable>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

/// Does to a model of its own what a user does, and notes all that the model publishes at each of its announcements.
/// Operations are numbered, and what they enter and get bears their number, so that none is like an earlier one.
class WorkflowDriver {
public:
    using Reply = ScriptedEngine::Reply;
    /// What ends an operation that runs.
    using Interruption = void (RecoveryViewModel::*)();

    /// The greatest number of an operation.
    static constexpr int longestWalk = 16;

    /// Everything that is chosen lies in `folder`, where the packages and "Photos" are folders, and nothing else is.
    explicit WorkflowDriver(std::filesystem::path folder);
    ~WorkflowDriver();

    static std::string secret(int number) { return "secret " + std::to_string(number); }
    static std::string package(int number) { return "Photos " + std::to_string(number) + ".ambrel"; }
    static std::string destination(int number) { return "New " + std::to_string(number); }
    static std::string inspection(int number, const std::string& disposition);
    static std::string report(int number);

    /// Forgets what was announced.
    void begin(int number);
    /// Waits for that many announcements since begin(); false where they do not come.
    bool waitForAnnouncements(std::size_t count);

    void choosePackage(const std::string& name);
    void type();
    /// Types a secret and inspects.
    void inspect(Reply reply, const std::string& output = {});
    void failPreparation();
    void interruptPreparation(Interruption interruption);
    void interruptInspection(Interruption interruption);
    void exportTo(const std::string& name, Reply reply, const std::string& output = {});
    void interruptExport(Interruption interruption);

    int number() const { return number_; }
    RecoveryViewModel& model() { return *model_; }
    /// Ends the life of the model.
    void destroyModel() { model_.reset(); }
    const ScriptedEngine& engine() const { return *engine_; }
    std::filesystem::path path(const std::string& name) const { return folder_ / name; }
    WorkflowState state() { return WorkflowState::of(*model_, errors_); }
    /// What was published when each announcement was made, before its change.
    const std::vector<WorkflowState>& announced() const { return announced_; }

private:
    class Cloud;

    static bool waitUntil(const std::function<bool()>& condition);
    void interruptRun(Interruption interruption, std::size_t runsBefore);

    const std::filesystem::path folder_;
    AnsweringPanels panels_;
    RecordingFileViewer fileViewer_;
    const std::shared_ptr<Cloud> cloud_;
    const std::shared_ptr<ScriptedEngine> engine_ = std::make_shared<ScriptedEngine>();
    std::unique_ptr<RecoveryViewModel> model_;
    int number_ = 0;
    std::vector<QUuid> errors_;
    std::vector<WorkflowState> announced_;
};
