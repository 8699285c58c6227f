#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

constexpr int generousMilliseconds = 60'000;

} // namespace

TEST(BackgroundTaskTest, worksOnAnotherThreadAndCompletesOnTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    std::optional<std::thread::id> completedOn;
    std::thread::id workedOn;
    BackgroundTask::run([] { return std::this_thread::get_id(); },
                        [&](std::future<std::thread::id>& outcome) {
                            workedOn = outcome.get();
                            completedOn = std::this_thread::get_id();
                        });
    ASSERT_TRUE(QTest::qWaitFor([&] { return completedOn.has_value(); }, generousMilliseconds));
    EXPECT_NE(workedOn, mainThread);
    EXPECT_EQ(completedOn, mainThread);
}

TEST(BackgroundTaskTest, deliversWhatTheWorkThrew) {
    bool caught = false;
    BackgroundTask::run([]() -> int { throw std::runtime_error("no"); },
                        [&caught](std::future<int>& outcome) {
                            EXPECT_THROW(outcome.get(), std::runtime_error);
                            caught = true;
                        });
    EXPECT_TRUE(QTest::qWaitFor([&] { return caught; }, generousMilliseconds));
}

TEST(BackgroundTaskTest, releasesWhatTheWorkCapturedBeforeItsCompletion) {
    auto captured = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = captured;
    bool gone = false;
    bool completed = false;
    BackgroundTask::run([captured = std::move(captured)] { return *captured; },
                        [&](std::future<int>&) {
                            gone = watched.expired();
                            completed = true;
                        });
    ASSERT_TRUE(QTest::qWaitFor([&] { return completed; }, generousMilliseconds));
    EXPECT_TRUE(gone);
}

TEST(BackgroundTaskTest, waitsForRunningWorkUpToALimit) {
    std::promise<void> gate;
    bool completed = false;
    BackgroundTask::run([opened = gate.get_future().share()] { opened.wait(); },
                        [&completed](std::future<void>&) { completed = true; });
    EXPECT_FALSE(BackgroundTask::waitForAll(std::chrono::milliseconds(1)));
    gate.set_value();
    EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::milliseconds(generousMilliseconds)));
    QCoreApplication::processEvents();
    EXPECT_TRUE(completed);
}

TEST(BackgroundTaskTest, doesNotWaitForAbandonedWorkButReportsIt) {
    constexpr std::chrono::hours tooLongForATest(1);
    std::promise<void> gate;
    bool completed = false;
    BackgroundTask::run([opened = gate.get_future().share()] { opened.wait(); },
                        [&completed](std::future<void>&) { completed = true; }, BackgroundTask::AtEnd::abandoned);
    EXPECT_FALSE(BackgroundTask::waitForAll(tooLongForATest));
    gate.set_value();
    ASSERT_TRUE(QTest::qWaitFor([&] { return completed; }, generousMilliseconds));
    EXPECT_TRUE(QTest::qWaitFor([&] { return BackgroundTask::waitForAll(tooLongForATest); }, generousMilliseconds));
}

TEST(BackgroundTaskTest, keepsTheOrderOfWhatOneThreadPosts) {
    std::vector<int> order;
    BackgroundTask::run(
        [&order] {
            for (int number = 0; number < 100; ++number) {
                BackgroundTask::postToMainThread([&order, number] { order.push_back(number); });
            }
        },
        [&order](std::future<void>&) { order.push_back(100); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return order.size() == 101; }, generousMilliseconds));
    EXPECT_TRUE(std::ranges::is_sorted(order));
}
