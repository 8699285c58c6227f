// The table of the workflow against the model: every operation where everything is there, and every sequence of a few.

#include "../Support/RecoveryViewModelTestCase.h"
#include "WorkflowTable.h"
#include "WorkflowWalk.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace {

using WorkflowTable::Expected;
using WorkflowTable::operation;
using WorkflowTable::operations;

class RecoveryWorkflowTest : public RecoveryViewModelTestCase {
protected:
    RecoveryWorkflowTest() {
        std::filesystem::create_directories(folder_ / "Photos");
        for (int number = 1; number <= WorkflowDriver::longestWalk; ++number) {
            std::filesystem::create_directory(folder_ / WorkflowDriver::package(number));
        }
    }

    /// After these operations the model has everything that it can have, an error included.
    bool takeEverything(WorkflowWalk& walk) const {
        constexpr std::array names = {"choose", "inspect", "export",        "inspect, forked",
                                      "select", "type",    "export, failed"};
        return std::ranges::all_of(names, [&walk](const char* name) { return walk.take(operation(name)); });
    }

    bool take(const std::vector<const WorkflowTable::Operation*>& sequence) {
        ++count_;
        WorkflowWalk walk(folder_);
        return std::ranges::all_of(sequence, [&walk](const auto* operation) { return walk.take(*operation); }) &&
               staysAsExpected(walk);
    }

    /// Whether nothing comes of what still runs.
    bool staysAsExpected(WorkflowWalk& walk) {
        settle();
        return walk.isAsExpected();
    }

    /// Takes `sequence`, after which everything is as in `before`, with every one of up to `length` operations after
    /// it. What is refused or changes nothing is the last: what follows it is walked without it.
    bool takeWithAll(std::vector<const WorkflowTable::Operation*>& sequence, const Expected& before, int length) {
        return std::ranges::all_of(operations(), [&](const WorkflowTable::Operation& operation) {
            sequence.push_back(&operation);
            Expected after = before;
            after.take(operation);
            const bool isLast = length == 1 || !before.wouldGoOnWith(operation);
            const bool isRight = isLast ? take(sequence) : takeWithAll(sequence, after, length - 1);
            sequence.pop_back();
            return isRight;
        });
    }

    int count_ = 0;
    const std::filesystem::path folder_ = path("files");
};

/// The outcome of a step is queued when the user, or the end of the window, gets ahead of it.
class RecoveryWorkflowOvertakenTest : public RecoveryWorkflowTest {
protected:
    void inspect() {
        choosePackage();
        driver_.inspect(ScriptedEngine::Reply::succeeds, WorkflowDriver::inspection(1, "single-branch"));
    }

    void choosePackage() {
        driver_.choosePackage(WorkflowDriver::package(1));
        waitUntil([this] { return driver_.model().packageURL().has_value(); });
    }

    void inspectToTheEnd() {
        inspect();
        waitUntil([this] { return driver_.model().phase() == Phase::snapshots; });
    }

    void beginExport() { driver_.exportTo("New", ScriptedEngine::Reply::succeeds, WorkflowDriver::report(1)); }

    void expectRunsAfterAll(std::size_t count) {
        settle();
        settle();
        EXPECT_EQ(driver_.engine().runs().size(), count);
    }

    WorkflowDriver driver_{folder_};
};

} // namespace

TEST_F(RecoveryWorkflowTest, everyOperationPublishesItsChangesInOrderIfEverythingIsAvailable) {
    for (const WorkflowTable::Operation& last : operations()) {
        WorkflowWalk walk(folder_);
        ASSERT_TRUE(takeEverything(walk));
        EXPECT_TRUE(walk.take(last) && staysAsExpected(walk));
    }
    // Nothing is set to what it was, so that no two of the changes could change places unseen.
    for (const char* const name : {"choose", "start again", "export", "export, failed", "export, no engine"}) {
        WorkflowWalk walk(folder_);
        ASSERT_TRUE(takeEverything(walk));
        ASSERT_TRUE(walk.take(operation(name)));
        EXPECT_EQ(std::ranges::adjacent_find(walk.expectedStates()), walk.expectedStates().end()) << name;
    }
}

TEST_F(RecoveryWorkflowTest, everySequenceOfThreeFollowsTheTable) {
    for (const WorkflowTable::Operation& first : operations()) {
        for (const WorkflowTable::Operation& second : operations()) {
            for (const WorkflowTable::Operation& third : operations()) {
                ASSERT_TRUE(take({&first, &second, &third}));
            }
        }
    }
}

TEST_F(RecoveryWorkflowTest, everyLongerSequenceThatChangesSomethingFollowsTheTable) {
    const char* const asked = std::getenv("AMBREL_SEQUENCE_LENGTH");
    const int length = asked == nullptr ? 4 : std::atoi(asked);
    ASSERT_TRUE(length > 0 && length <= WorkflowDriver::longestWalk);
    std::vector<const WorkflowTable::Operation*> sequence;
    Expected start;
    start.folder = folder_;
    EXPECT_TRUE(takeWithAll(sequence, start, length));
    std::cout << count_ << " sequences of up to " << length << " operations\n";
}

TEST_F(RecoveryWorkflowOvertakenTest, noInspectionStartsAfterACancellation) {
    for (const auto interruption : {&RecoveryViewModel::cancelOperation, &RecoveryViewModel::startAgain}) {
        inspect();
        waitForWork();
        (driver_.model().*interruption)();
        expectRunsAfterAll(0);
        EXPECT_EQ(driver_.model().phase(), Phase::chooseBackup);
    }
}

TEST_F(RecoveryWorkflowOvertakenTest, noInspectionStartsAfterTheEndOfTheModel) {
    inspect();
    waitForWork();
    driver_.destroyModel();
    expectRunsAfterAll(0);
}

TEST_F(RecoveryWorkflowOvertakenTest, noExportStartsAfterACancellation) {
    for (const auto interruption : {&RecoveryViewModel::cancelOperation, &RecoveryViewModel::startAgain}) {
        inspectToTheEnd();
        const std::size_t runs = driver_.engine().runs().size();
        beginExport();
        waitForWork();
        (driver_.model().*interruption)();
        expectRunsAfterAll(runs);
        EXPECT_FALSE(driver_.model().destinationURL());
    }
}

TEST_F(RecoveryWorkflowOvertakenTest, noExportStartsAfterTheEndOfTheModel) {
    inspectToTheEnd();
    beginExport();
    waitForWork();
    driver_.destroyModel();
    expectRunsAfterAll(1);
}
