#include "WorkflowDriver.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <utility>

/// Items on this machine, or some whose download fails, or some that do not answer for a while.
class WorkflowDriver::Cloud final : public CloudItems {
public:
    enum class Answer { local, failed, held };

    void answer(Answer answer) {
        const std::lock_guard lock(mutex_);
        answer_ = answer;
        changed_.notify_all();
    }

    Properties properties(const std::filesystem::path&) override {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return answer_ != Answer::held; });
        const bool isFailed = answer_ == Answer::failed;
        return {.isUbiquitous = isFailed, .hasDownloadingError = isFailed};
    }
    void startDownloading(const std::filesystem::path&) override {}
    std::optional<double> percentDownloaded(const std::filesystem::path&) override { return std::nullopt; }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    Answer answer_ = Answer::local;
};

WorkflowDriver::WorkflowDriver(std::filesystem::path folder)
    : folder_(std::move(folder)), cloud_(std::make_shared<Cloud>()),
      model_(std::make_unique<RecoveryViewModel>(engine_, RecoveryViewModel::Desktop{panels_, fileViewer_, cloud_})) {
    QObject::connect(model_.get(), &RecoveryViewModel::aboutToChange, [this] { announced_.push_back(state()); });
}

WorkflowDriver::~WorkflowDriver() = default;

std::string WorkflowDriver::inspection(int number, const std::string& disposition) {
    const auto snapshot = [](const std::string& code, const std::string& time, const std::string& tip) {
        return R"({"selectionCode":")" + code + R"(","createdAtUTCMilliseconds":)" + time +
               R"(,"writerEpoch":1,"generation":1,"retainedTip":)" + tip +
               R"(,"counts":{"items":3,"resources":4,"folders":0,)"
               R"("albums":0,"memberships":0,"tombstones":0},"logicalPlaintextByteCount":1,)"
               R"("encryptedPayloadByteCount":1,"payloadFileEvidence":{"complete":true,"requiredFileCount":4,)"
               R"("matchingFileCount":4,"missingFileCount":0,"mismatchedFileCount":0,"unreadableFileCount":0}})";
    };
    return R"({"schemaIdentifier":"com.ambrel.recovery.cli-inspection.v1","formatIdentifier":"com.ambrel.backup.v1",)"
           R"("formatVersion":1,"unlockedFactor":"backup-passphrase","branchDisposition":")" +
           disposition + R"(","authenticatedCommitCount":2,"authenticatedHeadCount":1,"maximumWriterEpoch":)" +
           std::to_string(number) + R"(,"preservedBranches":[],"snapshots":[)" + snapshot("old", "1000", "false") +
           "," + snapshot("new", "2000", "true") + "]}";
}

std::string WorkflowDriver::report(int number) {
    return R"({"schemaIdentifier":"com.ambrel.recovery.cli-export.v1","status":"","selectedSnapshotCode":"",)"
           R"("totalItemCount":3,"recoveredItemCount":)" +
           std::to_string(number) + R"(,"totalResourceCount":4,"recoveredResourceCount":4,"failedResourceCount":0})";
}

void WorkflowDriver::begin(int number) {
    number_ = number;
    announced_.clear();
    cloud_->answer(Cloud::Answer::local);
}

bool WorkflowDriver::waitUntil(const std::function<bool()>& condition) {
    QDeadlineTimer deadline(60'000);
    // Whatever is waited for wakes the loop by itself; this is for what never comes.
    QTimer alarm;
    alarm.start(1'000);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool WorkflowDriver::waitForAnnouncements(std::size_t count) {
    return announced_.size() >= count || waitUntil([this, count] { return announced_.size() >= count; });
}

void WorkflowDriver::choosePackage(const std::string& name) {
    panels_.answer = path(name);
    model_->chooseBackup();
}

void WorkflowDriver::type() {
    model_->setCredential(SecretText(QString::fromStdString(secret(number_))));
}

void WorkflowDriver::inspect(Reply reply, const std::string& output) {
    engine_->replyWith(reply, output);
    type();
    model_->inspectBackup();
}

void WorkflowDriver::failPreparation() {
    cloud_->answer(Cloud::Answer::failed);
    inspect(Reply::succeeds);
}

void WorkflowDriver::interruptPreparation(Interruption interruption) {
    cloud_->answer(Cloud::Answer::held);
    inspect(Reply::succeeds);
    if (model_->isBusy()) {
        ((*model_).*interruption)();
    }
    cloud_->answer(Cloud::Answer::local);
}

void WorkflowDriver::interruptInspection(Interruption interruption) {
    const std::size_t runsBefore = engine_->runs().size();
    inspect(Reply::waits);
    if (model_->isBusy()) {
        interruptRun(interruption, runsBefore);
    }
}

void WorkflowDriver::exportTo(const std::string& name, Reply reply, const std::string& output) {
    engine_->replyWith(reply, output);
    panels_.answer = path(name);
    model_->chooseDestinationAndExport();
}

void WorkflowDriver::interruptExport(Interruption interruption) {
    const std::size_t runsBefore = engine_->runs().size();
    const bool begins = model_->canExport();
    exportTo(destination(number_), Reply::waits);
    if (begins) {
        interruptRun(interruption, runsBefore);
    }
}

void WorkflowDriver::interruptRun(Interruption interruption, std::size_t runsBefore) {
    EXPECT_TRUE(waitUntil([this, runsBefore] { return engine_->runs().size() > runsBefore; }));
    ((*model_).*interruption)();
}
