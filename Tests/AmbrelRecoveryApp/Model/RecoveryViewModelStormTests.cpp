// Operations of the model in a storm, and the model destroyed at every point of an operation.

#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"
#include "Support/MisbehavingEngine.h"
#include "Support/OpenDescriptors.h"
#include "Support/ScopedEnvironment.h"
#include "Support/Storm.h"
#include "Support/TestFiles.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTest>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <iostream>
#include <map>
#include <set>

#include <sys/wait.h>

namespace {

using Kind = AmbrelRecoveryFailureKind;

/// The errors that misbehaviors end in. All others end in none.
const std::map<std::string, Kind> errorsOfEngines = {
    {"wrong-schema", Kind::generic},
    {"garbage", Kind::generic},
    {"did-not-unlock", Kind::wrongPassphrase},
    {"no-output", Kind::generic},
    {"crash", Kind::generic},
    {"silent-failure", Kind::generic},
    {"write-both", Kind::generic},
    {"litter-output-directory", Kind::generic},
};

/// A model on misbehaving-engine, whose misbehaviors a file names.
class RecoveryViewModelStormTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelStormTest() : choice_("AMBREL_TEST_MISBEHAVIOR", "@" + path("misbehavior").string()) {
        std::filesystem::remove(path("engine"));
        std::filesystem::create_symlink(misbehavingEngine(), path("engine"));
        misbehave("valid");
        makeModel();
    }

    /// In one step, since an engine may be reading it.
    void misbehave(const std::string& text) {
        if (!model || (!model->isBusy() && !model->presentedError())) {
            inForce_.clear();
        }
        inForce_.insert(text.substr(0, text.find(' ')));
        TestFiles::write(path("next"), text);
        std::filesystem::rename(path("next"), path("misbehavior"));
    }

    static void deliverEvents() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Waits for the end of all work and of what follows from it.
    static void settle() {
        const QDeadlineTimer deadline(std::chrono::minutes(1));
        do {
            waitForWork();
            deliverEvents();
            ASSERT_FALSE(deadline.hasExpired()) << "work leads to work";
        } while (!BackgroundTask::waitForAll(std::chrono::seconds(0)));
    }

    /// A thread ends a moment after the work that was its purpose, and its resources go with it.
    void expectNothingLeft(const std::map<int, std::string>& descriptors) {
        EXPECT_TRUE(temporaryFiles().empty());
        EXPECT_EQ(openDescriptors(), descriptors);
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child process is left";
        EXPECT_EQ(errno, ECHILD);
    }

    /// Lets the operation come to its end, unless that takes long.
    void finishOrGiveUp() {
        constexpr int milliseconds = 60;
        static_cast<void>(QTest::qWaitFor([this] { return !model->isBusy(); }, milliseconds));
    }

    /// What the user is told is what one of the engines that may have run has done, and no engine that did its part is
    /// told of as a failure.
    void expectFittingError() {
        if (!model || !model->presentedError()) {
            return;
        }
        const auto fits = [this](const std::string& misbehavior) {
            const auto kind = errorsOfEngines.find(misbehavior);
            return kind != errorsOfEngines.end() &&
                   RecoveryErrorPresentation::errorPresentation(kind->second).title == model->presentedError()->title;
        };
        EXPECT_TRUE(std::ranges::any_of(inForce_, fits))
            << model->presentedError()->title.toStdString() << " after " << testing::PrintToString(inForce_);
        ++errors_;
        model->dismissPresentedError();
    }

    int errors() const { return errors_; }

    /// How many engines were really started.
    int startedEngines() const {
        const std::string log = TestFiles::read(path("log"));
        int count = 0;
        for (std::size_t place = log.find("started "); place != std::string::npos;
             place = log.find("started ", place + 1)) {
            ++count;
        }
        return count;
    }

    /// Also while an operation runs, which ignores it, and where the model is destroyed meanwhile. The inspection
    /// overtakes a second choice of the package.
    void startInspection() {
        if (!model->isBusy()) {
            choosePackage();
        }
        if (model) {
            model->chooseBackup();
            type("secret");
            model->inspectBackup();
        }
    }

    std::filesystem::path nextDestination() { return path("Recovered " + std::to_string(++exports_)); }

    /// Destroys the model once it has announced so many changes, in the next turn of the event loop. False where it
    /// never announced so many.
    bool destroyAfter(int announcements) {
        int seen = 0;
        bool destroyed = false;
        QObject::connect(model.get(), &RecoveryViewModel::aboutToChange, [&] {
            if (++seen == announcements) {
                BackgroundTask::postToMainThread([this, &destroyed] {
                    model.reset();
                    destroyed = true;
                });
            }
        });
        startInspection();
        waitUntil([this] { return !model || !model->isBusy(); });
        if (model) {
            chooseDestination(nextDestination());
            waitUntil([this] { return !model || !model->isBusy(); });
        }
        deliverEvents();
        settle();
        return destroyed;
    }

private:
    const ScopedEnvironment choice_;
    const ScopedEnvironment log_{"AMBREL_TEST_ENGINE_LOG", path("log").string()};
    int exports_ = 0;
    int errors_ = 0;
    /// Since the model was last idle and showed no error.
    std::set<std::string> inForce_;
};

constexpr std::array<const char*, 11> misbehaviors = {"fork",
                                                      "wrong-schema",
                                                      "garbage",
                                                      "did-not-unlock",
                                                      "no-output",
                                                      "crash",
                                                      "wait",
                                                      "close-input",
                                                      "silent-failure",
                                                      "write-both 30000",
                                                      "litter-output-directory /nowhere"};

} // namespace

TEST_F(RecoveryViewModelStormTest, leavesNothingBehind) {
    Storm storm;
    std::map<int, std::string> descriptors;
    int runs = 0;
    int destroyed = 0;
    int completed = 0;
    for (int round = 0; runs < storm.runs() && !HasFailure(); ++round) {
        misbehave(storm.oneIn(2) ? "valid"
                                 : misbehaviors.at(static_cast<std::size_t>(storm.below(misbehaviors.size()))));
        for (int step = 0; step < 8; ++step) {
            switch (storm.below(10)) {
            case 0:
            case 1:
            case 2:
                runs += model->isBusy() ? 0 : 1;
                startInspection();
                // A second start while the first is running.
                model->inspectBackup();
                break;
            case 3:
            case 4:
                runs += model->canExport() ? 1 : 0;
                panels.answer = nextDestination();
                if (!model->canExport() || storm.oneIn(2)) {
                    model->chooseDestinationAndExport();
                } else {
                    chooseDestination(nextDestination());
                    finishOrGiveUp();
                    completed += model->phase() == Phase::complete ? 1 : 0;
                }
                break;
            case 5:
                model->cancelOperation();
                break;
            case 6:
                model->startAgain();
                break;
            case 7:
                if (storm.oneIn(3)) {
                    model.reset();
                    makeModel();
                    ++destroyed;
                }
                break;
            default:
                if (storm.oneIn(2)) {
                    // Most engines end by then; the others are left to the next cancellation.
                    finishOrGiveUp();
                }
                for (int turn = storm.below(6); turn > 0; --turn) {
                    deliverEvents();
                }
            }
            expectFittingError();
        }
        if (round % 10 == 9) {
            model->cancelOperation();
            settle();
            EXPECT_FALSE(model->isBusy());
            if (descriptors.empty()) {
                descriptors = openDescriptors();
            }
            expectNothingLeft(descriptors);
        }
    }
    model->cancelOperation();
    settle();
    EXPECT_GT(completed, 0) << "the storm never let an export come to its end";
    EXPECT_GT(errors(), 0) << "the storm never told of a failure";
    std::cout << runs << " operations, " << startedEngines() << " engines started, " << destroyed
              << " models destroyed, " << completed << " exports complete\n";
}

TEST_F(RecoveryViewModelStormTest, aModelThatIsDestroyedAfterAnyAnnouncementLeavesNothingBehind) {
    constexpr int far = 1000;
    int points = 0;
    std::map<int, std::string> descriptors;
    while (points < far && destroyAfter(points + 1)) {
        ++points;
        if (descriptors.empty()) {
            descriptors = openDescriptors();
        }
        expectNothingLeft(descriptors);
        EXPECT_FALSE(model);
        makeModel();
    }
    // Every published change of an inspection and an export that succeed was such a point.
    EXPECT_GE(points, 20);
    EXPECT_EQ(model->phase(), Phase::complete);
    std::cout << points << " points\n";
}

TEST_F(RecoveryViewModelStormTest, aModelThatIsDestroyedWhileAnOutcomeIsQueuedLeavesNothingBehind) {
    // The outcome of the preparation, of the inspection, and of the export, each queued when the model goes.
    for (int queued = 1; queued <= 3; ++queued) {
        int step = 0;
        startInspection();
        while (++step < queued) {
            waitUntil([this, step] { return model->phase() == (step == 1 ? Phase::inspecting : Phase::snapshots); });
            if (step == 2) {
                chooseDestination(nextDestination());
            }
        }
        ASSERT_TRUE(model->isBusy());
        waitForWork();
        model.reset();
        settle();
        EXPECT_TRUE(temporaryFiles().empty());
        makeModel();
    }
}
