#include "RecoveryViewModelTestCase.h"

#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QTest>

#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>
#include <utility>

namespace {

constexpr int generousMilliseconds = 60'000;

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

void AnsweringPanels::chooseBackup(const OpenPanel& panel, Completion completion) {
    openPanels.push_back(panel);
    if (staysOpen) {
        open.push_back(std::move(completion));
    } else {
        completion(answer);
    }
}

void AnsweringPanels::chooseDestination(const SavePanel& panel, Completion completion) {
    savePanels.push_back(panel);
    if (staysOpen) {
        open.push_back(std::move(completion));
    } else {
        completion(answer);
    }
}

RecoveryViewModelTestCase::RecoveryViewModelTestCase() : previousTemporaryDirectory_(qgetenv("TMPDIR")) {
    std::filesystem::create_directory(path("temporary"));
    qputenv("TMPDIR", QByteArray::fromStdString(path("temporary").native()));
    std::filesystem::create_directory(path("Family Photos.ambrel"));
    setEngineThatPrints(inspectionDocument());
}

RecoveryViewModelTestCase::~RecoveryViewModelTestCase() {
    model.reset();
    settle();
    EXPECT_TRUE(temporaryFiles().empty());
    previousTemporaryDirectory_.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", previousTemporaryDirectory_);
}

void RecoveryViewModelTestCase::setEngine(const std::string& body) {
    const std::filesystem::path engine = path("engine");
    // Replaced, not overwritten: a running engine keeps the file that it was started from.
    std::filesystem::remove(engine);
    std::ofstream(engine) << "#!/bin/sh\ncd '" << path("").native() << "'\n" << body;
    std::filesystem::permissions(engine, std::filesystem::perms::owner_all);
}

void RecoveryViewModelTestCase::setEngineThatPrints(const std::string& document) {
    std::ofstream(path("document")) << document;
    setEngine("printf '%s\\n' \"$@\" > arguments\ncat > input\ncat document\n");
}

void RecoveryViewModelTestCase::setEngineThatFails(const std::string& text, int status) {
    setEngine("cat > input\necho '" + text + "' >&2\nexit " + std::to_string(status) + "\n");
}

void RecoveryViewModelTestCase::setEngineThatWaits() {
    setEngine("touch running\nexec sleep infinity\n");
}

void RecoveryViewModelTestCase::waitUntilEngineRuns() {
    waitUntil([this] { return std::filesystem::exists(path("running")); });
    std::filesystem::remove(path("running"));
}

void RecoveryViewModelTestCase::makeModel() {
    model =
        std::make_unique<RecoveryViewModel>(path("engine"), RecoveryViewModel::Desktop{panels, fileViewer, cloudItems});
}

void RecoveryViewModelTestCase::untilAnnounced(const std::function<void()>& act) {
    bool isAnnounced = false;
    const auto connection =
        QObject::connect(model.get(), &RecoveryViewModel::aboutToChange, [&isAnnounced] { isAnnounced = true; });
    act();
    waitUntil([this, &isAnnounced] { return isAnnounced || !model; });
    QObject::disconnect(connection);
}

void RecoveryViewModelTestCase::choosePackage() {
    panels.answer = path("Family Photos.ambrel");
    untilAnnounced([this] { model->chooseBackup(); });
}

void RecoveryViewModelTestCase::chooseDestination(const std::filesystem::path& destination) {
    panels.answer = destination;
    untilAnnounced([this] { model->chooseDestinationAndExport(); });
}

void RecoveryViewModelTestCase::type(const QString& credential) {
    model->setCredential(SecretText(credential));
}

void RecoveryViewModelTestCase::inspect(const std::string& document) {
    setEngineThatPrints(document);
    choosePackage();
    type(QStringLiteral("correct horse"));
    model->inspectBackup();
    waitForPhase(Phase::snapshots);
}

void RecoveryViewModelTestCase::exportEverything() {
    setEngineThatPrints(exportDocument());
    chooseDestination(path("Ambrel Recovered"));
    waitForPhase(Phase::complete);
}

void RecoveryViewModelTestCase::exportToTheEndAndInspectAgain() {
    inspect(inspectionDocument());
    exportEverything();
    setEngineThatPrints(inspectionDocument());
    type(QStringLiteral("correct horse"));
    model->inspectBackup();
    waitForPhase(Phase::snapshots);
    ASSERT_TRUE(model->packageURL() && model->inspection() && model->selectedSnapshotCode());
    ASSERT_TRUE(model->destinationURL() && model->exportResult() && model->packagePreparationProgress());
    ASSERT_TRUE(model->canExport());
}

void RecoveryViewModelTestCase::waitUntil(const std::function<bool()>& condition) {
    EXPECT_TRUE(QTest::qWaitFor(condition, generousMilliseconds));
}

void RecoveryViewModelTestCase::waitForPhase(Phase phase) {
    waitUntil([this, phase] { return model->phase() == phase; });
}

void RecoveryViewModelTestCase::waitForWork() {
    const QDeadlineTimer deadline(generousMilliseconds);
    // Not true while a check runs, which nobody waits for at the end of the process.
    while (!BackgroundTask::waitForAll(std::chrono::milliseconds(generousMilliseconds))) {
        ASSERT_FALSE(deadline.hasExpired()) << "work goes on and on";
        std::this_thread::yield();
    }
}

void RecoveryViewModelTestCase::settle() {
    waitForWork();
    QCoreApplication::processEvents();
}

std::vector<std::string> RecoveryViewModelTestCase::engineArguments() const {
    std::ifstream stream(path("arguments"));
    std::vector<std::string> arguments;
    for (std::string line; std::getline(stream, line);) {
        arguments.push_back(line);
    }
    return arguments;
}

std::string RecoveryViewModelTestCase::engineInput() const {
    return contents(path("input"));
}

std::filesystem::path RecoveryViewModelTestCase::path(const std::string& name) const {
    return std::filesystem::path(directory_.path().toStdString()) / name;
}

std::vector<std::filesystem::path> RecoveryViewModelTestCase::temporaryFiles() const {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(path("temporary"))) {
        files.push_back(entry.path());
    }
    return files;
}

std::string RecoveryViewModelTestCase::inspectionDocument(const std::string& disposition) {
    const auto snapshot = [](const std::string& code, const std::string& time, const std::string& tip) {
        return R"({"selectionCode":")" + code + R"(","createdAtUTCMilliseconds":)" + time +
               R"(,"writerEpoch":1,"generation":1,"retainedTip":)" + tip +
               R"(,"counts":{"items":3,"resources":4,"folders":0,"albums":0,"memberships":0,"tombstones":0},)" +
               R"("logicalPlaintextByteCount":1500000,"encryptedPayloadByteCount":1600000,"payloadFileEvidence":)" +
               R"({"complete":true,"requiredFileCount":4,"matchingFileCount":4,"missingFileCount":0,)" +
               R"("mismatchedFileCount":0,"unreadableFileCount":0}})";
    };
    return R"({"schemaIdentifier":"com.ambrel.recovery.cli-inspection.v1","formatIdentifier":"com.ambrel.backup.v1",)"
           R"("formatVersion":1,"unlockedFactor":"backup-passphrase","branchDisposition":")" +
           disposition +
           R"(","authenticatedCommitCount":2,"authenticatedHeadCount":1,"maximumWriterEpoch":1,"preservedBranches":[],)"
           R"("snapshots":[)" +
           snapshot("old", "1000", "false") + "," + snapshot("new", "2000", "true") + "]}";
}

std::string RecoveryViewModelTestCase::exportDocument() {
    return R"({"schemaIdentifier":"com.ambrel.recovery.cli-export.v1","status":"any word","selectedSnapshotCode":"x",)"
           R"("totalItemCount":3,"recoveredItemCount":3,"totalResourceCount":4,"recoveredResourceCount":4,)"
           R"("failedResourceCount":0})";
}
