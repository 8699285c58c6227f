// A runner between threads: cancelled from another one, started twice, beside other runners.

#include "ProcessRunnerTest.h"
#include "Support/MisbehavingEngine.h"

#include <gmock/gmock.h>

#include <atomic>
#include <barrier>
#include <csignal>
#include <future>
#include <thread>

namespace {

using ProcessRunnerCancellationTest = ConversingProcessRunnerTest;

class ProcessRunnerSingleFlightTest : public ConversingProcessRunnerTest {
protected:
    /// The next line of the engines' log that tells of one.
    std::string nextStartOrEnd() {
        std::string line;
        do {
            line = awaitLog("");
        } while (!line.starts_with("started ") && !line.starts_with("finished "));
        return line;
    }
};

using ProcessRunnersTest = ProcessRunnerTest;

} // namespace

TEST_F(ProcessRunnerCancellationTest, givesAnOrdinaryResultWithTheSignal) {
    std::thread cancelling([this] {
        awaitLog("waiting");
        cancel();
    });
    const Result result = runCancellable({"wait"});
    cancelling.join();
    EXPECT_EQ(result.exitCode, SIGTERM);
}

TEST_F(ProcessRunnerCancellationTest, givesTheExitStatusOfAnEngineThatEndsNormally) {
    std::thread cancelling([this] {
        awaitLog("waiting");
        runner_.cancelCurrentOperation();
    });
    EXPECT_EQ(run({"exit-when-asked", "7"}, "credential").exitCode, 7);
    cancelling.join();
}

TEST_F(ProcessRunnerCancellationTest, keepsWhatTheEngineWroteBefore) {
    std::thread cancelling([this] {
        // The engine has its credential and has written.
        awaitLog("waiting");
        runner_.cancelCurrentOperation();
    });
    const Result result = run({"write-output", "26"}, "credential");
    cancelling.join();
    EXPECT_EQ(result.exitCode, SIGTERM);
    EXPECT_EQ(result.standardOutput, "abcdefghijklmnopqrstuvwxyz");
}

TEST_F(ProcessRunnerCancellationTest, givesTheEngineAllTheTimeItNeeds) {
    std::thread cancelling([this] {
        awaitLog("deaf");
        for (int count = 0; count < 3; ++count) {
            runner_.cancelCurrentOperation();
            awaitLog("asked to end");
        }
        openGate();
    });
    EXPECT_EQ(run({"ignore-termination", "4"}, "credential").exitCode, 4);
    cancelling.join();
}

TEST_F(ProcessRunnerCancellationTest, duringTheDeliveryEndsInAnOrdinaryResult) {
    // The engines read nothing, and the pipe does not hold this much. Another process keeps that of the second one
    // whole.
    for (const char* const engine : {"wait", "leave-reader-and-wait"}) {
        std::thread cancelling([this] {
            awaitLog("waiting");
            runner_.cancelCurrentOperation();
        });
        EXPECT_EQ(run({engine}, std::string(1U << 20U, 'x')).exitCode, SIGTERM) << engine;
        cancelling.join();
    }
    openGate();
    awaitLog("grandchild finished");
}

TEST_F(ProcessRunnerCancellationTest, withNothingRunningDoesNothing) {
    runner_.cancelCurrentOperation();
    openGate();
    EXPECT_EQ(run({"exit", "3"}).exitCode, 3);
    runner_.cancelCurrentOperation();
    runner_.cancelCurrentOperation();
    openGate();
    EXPECT_EQ(run({"exit", "4"}).exitCode, 4);
}

TEST_F(ProcessRunnerCancellationTest, byAnAlreadyStoppedTokenEndsTheEngineAtOnce) {
    std::stop_source source;
    source.request_stop();
    EXPECT_EQ(run({"wait"}, std::nullopt, patience, source.get_token()).exitCode, SIGTERM);
}

TEST_F(ProcessRunnerCancellationTest, byAnAlreadyStoppedTokenNeverLooksLikeAFailedLaunch) {
    std::stop_source source;
    source.request_stop();
    // The engine may be gone before the credential is written.
    for (int count = 0; count < 10; ++count) {
        EXPECT_EQ(run({"wait"}, "credential", patience, source.get_token()).exitCode, SIGTERM);
    }
}

TEST_F(ProcessRunnerCancellationTest, aTokenThatIsNotStoppedChangesNothing) {
    const std::stop_source source;
    openGate();
    EXPECT_EQ(run({"exit", "5"}, std::nullopt, patience, source.get_token()).exitCode, 5);
}

TEST_F(ProcessRunnerCancellationTest, aTokenThatIsStoppedAfterTheLaunchDoesNotEndTheEngine) {
    std::stop_source source;
    std::thread stopping([&] {
        // The engine has its credential, so the launch is over.
        awaitLog("waiting");
        source.request_stop();
        openGate();
    });
    EXPECT_EQ(run({"exit", "5"}, "credential", patience, source.get_token()).exitCode, 5);
    stopping.join();
}

TEST_F(ProcessRunnerCancellationTest, atAnyMomentIsNeverMissed) {
    // The token covers the time before the launch and the request the time after it: no moment is between them.
    for (int count = 0; count < 100; ++count) {
        std::stop_source source;
        std::barrier together(2);
        std::thread cancelling([&] {
            together.arrive_and_wait();
            // A little later in every round; the last ones come when the engine has long been running.
            for (std::atomic<int> pause = 0; pause < count * 3000; ++pause) {
            }
            source.request_stop();
            runner_.cancelCurrentOperation();
        });
        together.arrive_and_wait();
        EXPECT_EQ(run({"wait"}, std::nullopt, patience, source.get_token()).exitCode, SIGTERM);
        cancelling.join();
    }
}

TEST_F(ProcessRunnerCancellationTest, aroundTheEndOfARunGivesAnOrdinaryResult) {
    std::atomic<bool> finished = false;
    std::thread cancelling([&] {
        while (!finished) {
            runner_.cancelCurrentOperation();
        }
    });
    for (int count = 0; count < 100; ++count) {
        openGate();
        const int exitCode = run({"exit", "0"}).exitCode;
        EXPECT_TRUE(exitCode == 0 || exitCode == SIGTERM) << exitCode;
    }
    finished = true;
    cancelling.join();
}

TEST_F(ProcessRunnerSingleFlightTest, aSecondRunIsRefusedAndTheFirstGoesOn) {
    std::future<Result> first = std::async(std::launch::async, [this] {
        return run({"write-output", "3"}, "credential of the first");
    });
    awaitLog("waiting");
    const std::set<std::string> directories = privateDirectories();
    EXPECT_EQ(directories.size(), 1U);

    EXPECT_EQ(errorOfRun({"exit", "1"}), Error::operationAlreadyRunning);
    EXPECT_EQ(errorOfRun({"exit", "1"}, "credential of the second"), Error::operationAlreadyRunning);
    EXPECT_EQ(errorOfRun({"exit", "1"}, std::nullopt, 0), Error::operationAlreadyRunning);
    EXPECT_EQ(privateDirectories(), directories);

    openGate();
    const Result result = first.get();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.standardOutput, "abc");
    // The next engine that says anything is the one of the next run: the refused ones were never started.
    EXPECT_EQ(awaitLog(""), "finished 0");
    openGate();
    EXPECT_EQ(run({"exit", "2"}).exitCode, 2);
}

TEST_F(ProcessRunnerSingleFlightTest, isCheckedAfterThePrivateDirectory) {
    std::future<Result> first = std::async(std::launch::async, [this] { return run({"exit", "0"}); });
    awaitLog("waiting");
    {
        const ScopedEnvironment missing("TMPDIR", (directory_ / "missing").string());
        EXPECT_EQ(errorOfRun({"exit", "1"}), Error::temporaryOutputUnavailable);
    }
    openGate();
    EXPECT_EQ(first.get().exitCode, 0);
}

TEST_F(ProcessRunnerSingleFlightTest, aCancellationAfterARefusedRunReachesTheFirst) {
    std::future<Result> first = std::async(std::launch::async, [this] { return runCancellable({"wait"}); });
    awaitLog("waiting");
    EXPECT_EQ(errorOfRun({"exit", "1"}), Error::operationAlreadyRunning);
    cancel();
    EXPECT_EQ(first.get().exitCode, SIGTERM);
}

TEST_F(ProcessRunnerSingleFlightTest, eachOfManySimultaneousRunsRunsAloneOrIsRefused) {
    std::atomic<int> finished = 0;
    std::atomic<int> refused = 0;
    std::vector<std::thread> threads;
    std::barrier together(4);
    for (int thread = 0; thread < 4; ++thread) {
        openGate();
        threads.emplace_back([&] {
            together.arrive_and_wait();
            try {
                EXPECT_EQ(run({"exit", "9"}, "credential").exitCode, 9);
                ++finished;
            } catch (Error error) {
                EXPECT_EQ(error, Error::operationAlreadyRunning);
                ++refused;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GE(finished, 1);
    EXPECT_EQ(finished + refused, 4);
    // The engines took turns.
    for (int count = 0; count < finished; ++count) {
        EXPECT_THAT(nextStartOrEnd(), testing::StartsWith("started "));
        EXPECT_EQ(nextStartOrEnd(), "finished 9");
    }
}

TEST_F(ProcessRunnersTest, startedTogetherDoNotLeakDescriptorsIntoEachOthersEngine) {
    std::barrier together(2);
    const auto runMany = [&](std::optional<std::string_view> credential) {
        AmbrelRecoveryProcessRunner runner(misbehavingEngine());
        std::optional<std::span<const std::byte>> bytes;
        if (credential) {
            bytes = bytesOf(*credential);
        }
        for (int count = 0; count < 100; ++count) {
            together.arrive_and_wait();
            const std::string report = runner.run({"print-descriptors"}, bytes, patience).standardOutput;
            EXPECT_EQ(linesOf(report).size(), 3U) << report;
        }
    };
    std::thread other([&] { runMany("credential"); });
    runMany(std::nullopt);
    other.join();
}

TEST_F(ProcessRunnersTest, startedTogetherReceiveTheirOwnCredentials) {
    std::barrier together(2);
    const auto runMany = [&](const std::string& credential) {
        AmbrelRecoveryProcessRunner runner(misbehavingEngine());
        for (int count = 0; count < 50; ++count) {
            together.arrive_and_wait();
            // An engine that held the other's pipe open would wait for the end of its input for ever.
            EXPECT_EQ(runner.run({"echo-input"}, bytesOf(credential), patience).standardOutput,
                      echoOf(credential + "\n"));
        }
    };
    std::thread other([&] { runMany("one secret"); });
    runMany("quite another secret");
    other.join();
}

TEST_F(ProcessRunnersTest, areCancelledIndependently) {
    AmbrelRecoveryProcessRunner other(misbehavingEngine());
    NamedPipe gate(directory_ / "gate of the other");
    const ScopedEnvironment gateVariable("AMBREL_TEST_ENGINE_GATE", gate.path().string());
    std::future<Result> otherRun = std::async(std::launch::async, [&] {
        return other.run({"exit", "8"}, std::nullopt, patience);
    });
    std::stop_source source;
    source.request_stop();
    EXPECT_EQ(run({"wait"}, std::nullopt, patience, source.get_token()).exitCode, SIGTERM);
    runner_.cancelCurrentOperation();
    gate.write(".");
    EXPECT_EQ(otherRun.get().exitCode, 8);
}
