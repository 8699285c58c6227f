#include "AmbrelRecoveryApp/Desktop/BusConnection.h"

#include "../Support/TestBus.h"
#include "../Support/ThreadShortage.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>

using namespace std::chrono_literals;

TEST(BusConnectionTest, reportsItsFailureInALaterTurnIfThereIsNoThread) {
    TestBus bus("DBUS_SESSION_BUS_ADDRESS");
    bus.start();
    QObject context;
    int answers = 0;
    const auto answered = [&answers](const std::shared_ptr<BusConnection>& connection) {
        ++answers;
        EXPECT_FALSE(connection);
    };
    {
        const ThreadShortage shortage;
        BusConnection::open(QDBusConnection::SessionBus, 1min, &context, answered);
    }
    EXPECT_EQ(answers, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers != 0; }));
    EXPECT_EQ(answers, 1);
    EXPECT_TRUE(BackgroundTask::waitForAll(0ms));
}
