#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"
#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryAppSupport/CloudItems.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

/// Panels that answer at once with what a test has laid ready.
class AnsweringPanels final : public RecoveryPanels {
public:
    void chooseBackup(const OpenPanel& panel, Completion completion) override;
    void chooseDestination(const SavePanel& panel, Completion completion) override;

    std::optional<std::filesystem::path> answer;
    /// Where set, panels stay open, and a test answers them by calling what lies here.
    bool staysOpen = false;
    std::vector<Completion> open;
    std::vector<OpenPanel> openPanels;
    std::vector<SavePanel> savePanels;
};

class RecordingFileViewer final : public RecoveryFileViewer {
public:
    void reveal(const std::filesystem::path& folder) override { revealed.push_back(folder); }

    std::vector<std::filesystem::path> revealed;
};

/// A cloud drive whose every answer a test decides; local items unless told otherwise.
class ScriptedCloudItems final : public CloudItems {
public:
    /// Called in the place of properties(), on the background thread.
    std::function<Properties()> onProperties = [] { return Properties{}; };
    std::function<std::optional<double>()> onPercentDownloaded = [] { return std::nullopt; };

    Properties properties(const std::filesystem::path&) override { return onProperties(); }
    void startDownloading(const std::filesystem::path&) override {}
    std::optional<double> percentDownloaded(const std::filesystem::path&) override { return onPercentDownloaded(); }
};

/// A model on a scripted engine, with a package to choose, in a temporary directory of its own.
class RecoveryViewModelTestCase : public testing::Test {
protected:
    using Phase = RecoveryViewModel::Phase;

    RecoveryViewModelTestCase();
    ~RecoveryViewModelTestCase() override;

    /// Makes the engine a shell script with this body. It finds its arguments in "$@".
    void setEngine(const std::string& body);
    /// Makes the engine one that notes its arguments and its input and prints `document`.
    void setEngineThatPrints(const std::string& document);
    /// Makes the engine one that fails with this text on standard error.
    void setEngineThatFails(const std::string& text, int status = 1);
    /// Makes the engine one that tells that it runs, and runs until it is ended.
    void setEngineThatWaits();
    /// Returns once the engine of setEngineThatWaits() runs.
    void waitUntilEngineRuns();

    void makeModel();
    /// Does what sets off a check of a path, and returns once the model has taken in what the check told, or is
    /// gone.
    void untilAnnounced(const std::function<void()>& act);
    void choosePackage();
    /// Has the user name this destination for an export.
    void chooseDestination(const std::filesystem::path& destination);
    void type(const QString& credential);
    /// Chooses the package, types a credential and inspects it to the end.
    void inspect(const std::string& document);
    /// Exports the selected snapshot to the end.
    void exportEverything();
    /// Walks through the whole recovery and inspects once more, so that everything that the model can hold is there.
    void exportToTheEndAndInspectAgain();
    /// Lets the event loop run until `condition` holds; a condition that never does fails the test.
    void waitUntil(const std::function<bool()>& condition);
    void waitForPhase(Phase phase);
    /// Waits for the end of all work in the background; work that does not end fails the test. What it posted does not
    /// arrive meanwhile.
    static void waitForWork();
    /// The same, and what it posted has arrived.
    static void settle();

    std::vector<std::string> engineArguments() const;
    std::string engineInput() const;
    std::filesystem::path path(const std::string& name) const;
    std::vector<std::filesystem::path> temporaryFiles() const;

    /// An inspection with these snapshots, each given as code and creation time in milliseconds; the first one is the
    /// retained tip.
    static std::string inspectionDocument(const std::string& disposition = "single-branch");
    static std::string exportDocument();

    AnsweringPanels panels;
    RecordingFileViewer fileViewer;
    std::shared_ptr<ScriptedCloudItems> cloudItems = std::make_shared<ScriptedCloudItems>();
    std::unique_ptr<RecoveryViewModel> model;

private:
    QTemporaryDir directory_;
    QByteArray previousTemporaryDirectory_;
};
