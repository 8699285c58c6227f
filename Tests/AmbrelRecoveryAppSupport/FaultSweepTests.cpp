// Every system call of a run fails, in turn, with every error that fits it. What came of it stands in Docs/Testing.md,
// and the last test here compares.

#include "AmbrelRecoveryAppSupport/PrivateOutputDirectory.h"
#include "FittingErrors.h"
#include "ImportedFunctions.h"
#include "ProcessRunnerTest.h"
#include "Support/MemoryScan.h"
#include "Support/OpenDescriptors.h"
#include "Support/TestFiles.h"
#include "SystemCallFaults.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <new>
#include <tuple>

#include <sys/wait.h>

namespace {

/// Calls whose number or order differs between runs, builds, file systems, or with what a library does for itself.
bool isCounted(std::string_view call) {
    constexpr std::array<std::string_view, 9> uncounted = {"madvise", "mlock",   "mmap",     "munmap", "new",
                                                           "poll",    "readdir", "unlinkat", "waitid"};
    return std::ranges::find(uncounted, call) == uncounted.end();
}

/// The address sanitizer holds so much memory that a scan takes half a second: it is done once there.
#ifdef __SANITIZE_ADDRESS__
constexpr bool scansAfterEveryFault = false;
#else
constexpr bool scansAfterEveryFault = true;
#endif

struct Scenario {
    const char* title;
    std::vector<std::string> arguments;
    double timeout;
    /// What a single failure may leave: the directory to removeAbandoned(), or what the engine put in its place.
    bool mayLeave = false;
    /// Whether the engine waits at the gate before it exits.
    bool hasGate = false;
};

class FaultSweepTest : public ProcessRunnerTest {
protected:
    static std::vector<Scenario> scenarios() {
        return {
            {"A run with a credential.", {"echo-input"}, patience},
            {.title = "An engine that is asked to end at its time-out, where that differs.",
             .arguments = {"exit", "0"},
             .timeout = 0,
             .hasGate = true},
            {"An engine that leaves a folder and files of its own in the directory, where that differs.",
             {"litter-output-directory", "/nowhere"},
             patience,
             true},
            {"An engine that puts a link in the place of the directory, where that differs.",
             {"replace-output-directory", "/nowhere"},
             patience,
             true},
        };
    }

    void SetUp() override {
        ProcessRunnerTest::SetUp();
        credential_ = MemoryScan::hiddenSecret();
    }

    /// What a run ends in: "result", an error's name, or "bad_alloc".
    std::string outcomeOfRun(const Scenario& scenario) {
        // Nothing here allocates while calls are counted, except the run itself.
        std::string_view outcome = "result";
        std::optional<Result> result;
        try {
            result = runner_.run(scenario.arguments, bytesOf(credential_), scenario.timeout);
        } catch (Error error) {
            outcome = nameOf(error);
        } catch (const std::bad_alloc&) {
            outcome = "bad_alloc";
        }
        SystemCallFaults::pause();
        if (result && std::string_view(scenario.arguments.front()) == "echo-input") {
            EXPECT_EQ(result->standardOutput, echoOf(credential_ + "\n"));
        }
        return std::string(outcome);
    }

    /// Looks for everything that a run could leave, and adds it to the outcome.
    std::string leftovers(const Scenario& scenario) {
        std::string found;
        for (const std::string& name : privateDirectories()) {
            EXPECT_TRUE(scenario.mayLeave);
            if (std::filesystem::is_symlink(temporary_ / name)) {
                found += ", the engine's link is left";
                std::filesystem::remove(temporary_ / name);
            } else {
                found += ", the directory is left to the next start";
                PrivateOutputDirectory::removeAbandoned();
            }
        }
        EXPECT_EQ(TestFiles::names(temporary_), std::set<std::string>());
        EXPECT_EQ(openDescriptors(), descriptors_);
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
        if (scansAfterEveryFault) {
            EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 1) << "the test's own, and no other";
        }
        return found;
    }

    std::string outcomeWithFault(const Scenario& scenario, const std::string& call, int occurrence, int error) {
        SCOPED_TRACE(testing::Message() << call << " " << occurrence << " " << strerrorname_np(error));
        SystemCallFaults::reset();
        SystemCallFaults::fail(call, occurrence, error);
        if (call == "pidfd_send_signal") {
            // An engine that the system keeps from being asked to end is awaited until it ends by itself.
            SystemCallFaults::during(call, [this] { gate_.write("."); });
        }
        const std::string outcome = outcomeOfRun(scenario);
        // How often a run waits depends on how fast the engine is.
        if (SystemCallFaults::calls(call) >= occurrence) {
            ++faults_;
            faulted_.insert(call);
        }
        const bool waits = call == "poll" || call == "waitid";
        EXPECT_GE(SystemCallFaults::calls(call), waits ? 1 : occurrence) << "the fault did not happen";
        return outcome + leftovers(scenario);
    }

    /// Lets the call fail at each of its occurrences and notes what came of it.
    void fail(const Scenario& scenario, const std::string& call, int count, const std::string& clean) {
        for (int occurrence = 1; occurrence <= count; ++occurrence) {
            for (const int error : FittingErrors::ofCalls().at(call)) {
                std::string outcome = outcomeWithFault(scenario, call, occurrence, error);
                if (error == EINTR) {
                    EXPECT_EQ(outcome, clean) << call << " " << occurrence << " was interrupted";
                }
                outcome = outcome == clean ? "as without the failure" : outcome;
                note({call, strerrorname_np(error), outcome}, isCounted(call) ? occurrence : 0);
            }
        }
    }

    struct Observation {
        std::string call;
        std::string error;
        std::string outcome;

        auto operator<=>(const Observation&) const = default;
    };

    void note(const Observation& observation, int occurrence) {
        if (!known_[observation].contains(occurrence)) {
            fresh_[observation].insert(occurrence);
        }
    }

    /// Observations that differ in the error alone stand in one row.
    std::string rowsOfFreshObservations() {
        std::map<std::tuple<std::string, std::string, std::string>, std::string> errors;
        for (const auto& [observation, occurrences] : fresh_) {
            std::string numbers;
            for (const int occurrence : occurrences) {
                numbers += (numbers.empty() ? "" : " ") + (occurrence == 0 ? "each" : std::to_string(occurrence));
            }
            std::string& names = errors[{observation.call, observation.outcome, numbers}];
            names += (names.empty() ? "" : " ") + observation.error;
            known_[observation].insert(occurrences.begin(), occurrences.end());
        }
        fresh_.clear();
        std::string rows;
        for (const auto& [key, names] : errors) {
            const auto& [call, outcome, numbers] = key;
            rows += "| `" + call + "` | " + numbers + " | " + names + " | " + outcome + " |\n";
        }
        return rows;
    }

    std::string tableOf(const Scenario& scenario) {
        std::optional<ScopedEnvironment> gateVariable;
        if (scenario.hasGate) {
            gateVariable.emplace("AMBREL_TEST_ENGINE_GATE", gate_.path().string());
        }
        // What libraries do once for themselves comes first.
        outcomeOfRun(scenario);
        descriptors_ = openDescriptors();
        MemoryScan::copiesOfHiddenSecret();
        SystemCallFaults::reset();
        const std::string clean = outcomeOfRun(scenario);
        for (const auto& [call, count] : SystemCallFaults::allCalls()) {
            if (FittingErrors::ofCalls().contains(call)) {
                fail(scenario, call, count, clean);
            }
        }
        return std::string("**") + scenario.title + "** Without a failure: " + clean +
               ".\n\n| Call | Which one | Fails with | Outcome |\n|---|---|---|---|\n" + rowsOfFreshObservations();
    }

    int faults() const { return faults_; }

    /// The calls that have failed in one run or another.
    const std::set<std::string>& faulted() const { return faulted_; }

private:
    NamedPipe gate_{directory_ / "gate"};
    std::string credential_;
    std::map<int, std::string> descriptors_;
    /// What came out, with the occurrences of the call; 0 stands for each.
    std::map<Observation, std::set<int>> fresh_;
    /// The same of the scenarios before.
    std::map<Observation, std::set<int>> known_;
    int faults_ = 0;
    std::set<std::string> faulted_;
};

std::string documentedTables() {
    const std::string document = TestFiles::read(AMBREL_TESTING_DOCUMENT);
    const std::string_view begin = "<!-- faults: begin -->\n\n";
    const std::size_t start = document.find(begin);
    const std::size_t end = document.find("<!-- faults: end -->");
    return start == std::string::npos || end == std::string::npos
               ? ""
               : document.substr(start + begin.size(), end - start - begin.size());
}

/// With those of the descriptors that it holds.
std::set<std::string> functionsOfTheEngineClient() {
    std::set<std::string> functions = importedFunctions(AMBREL_ENGINE_CLIENT);
    functions.merge(importedFunctions(AMBREL_PLATFORM));
    return functions;
}

} // namespace

TEST(FittingErrorsTest, coverEveryFunctionThatTheEngineClientCalls) {
    for (const std::string& function : functionsOfTheEngineClient()) {
        EXPECT_NE(FittingErrors::ofCalls().contains(function), FittingErrors::unfailing().contains(function))
            << function << ": FittingErrors.cpp has to say with what it can come back";
    }
}

TEST_F(FaultSweepTest, everyFailureOfEveryCallEndsAsDocumentedAndLeavesNothingBehind) {
    std::string tables;
    for (const Scenario& scenario : scenarios()) {
        tables += tableOf(scenario) + "\n";
    }
    EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 1) << "the test's own, and no other";
    EXPECT_EQ(tables, documentedTables()) << "Docs/Testing.md has to say this between its two marks:\n\n" << tables;
    for (const std::string& function : functionsOfTheEngineClient()) {
        EXPECT_TRUE(!FittingErrors::ofCalls().contains(function) || faulted().contains(function))
            << function << " is called by the engine client, and failed in no run";
    }
    std::cout << faults() << " faults, each in a run of its own\n";
}
