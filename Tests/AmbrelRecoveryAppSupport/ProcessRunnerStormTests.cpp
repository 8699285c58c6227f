// Runs of every kind in a storm: cancelled at any moment, timed out, started twice, on engines of every sort.

#include "ProcessRunnerTest.h"
#include "Support/MisbehavingEngine.h"
#include "Support/OpenDescriptors.h"
#include "Support/Storm.h"

#include <atomic>
#include <csignal>
#include <iostream>
#include <map>
#include <thread>

#include <sys/wait.h>

namespace {

/// An engine, and what may come of it where nobody interferes.
struct StormyEngine {
    std::vector<std::string> arguments;
    bool endsByItself;
    std::set<int> exitCodes;
    bool closesItsInput = false;
};

const std::vector<StormyEngine>& engines() {
    static const std::vector<StormyEngine> engines = {
        {{"exit", "0"}, true, {0}},
        {{"exit", "3"}, true, {3}},
        {{"echo-input"}, true, {0}},
        {{"write-both", "20000"}, true, {0}},
        {{"close-input-and-exit", "4"}, true, {4}, true},
        {{"die", "9"}, true, {SIGKILL}},
        {{"litter-output-directory", "/nowhere"}, true, {0}},
        {{"wait"}, false, {}},
        {{"close-input"}, false, {}, true},
        {{"exit-when-asked", "5"}, false, {5}},
    };
    return engines;
}

class ProcessRunnerStormTest : public ProcessRunnerTest {
protected:
    using Outcomes = std::map<std::string, int>;

    /// What a thread is told before it starts: the storm's numbers are drawn by one thread.
    struct Plan {
        const StormyEngine* engine;
        std::optional<std::string> credential;
        double timeout;
        bool isCancelled;
        int pause;
        bool isDoubled;
    };

    Plan plan() {
        const StormyEngine& engine =
            engines()[static_cast<std::size_t>(storm_.below(static_cast<int>(engines().size())))];
        Plan plan{&engine, std::nullopt, patience, false, 0, storm_.oneIn(5)};
        if (storm_.below(3) != 0) {
            plan.credential =
                std::string(static_cast<std::size_t>(storm_.oneIn(20) ? 200'000 : storm_.below(100)), 'x');
        }
        plan.isCancelled = storm_.oneIn(2) || !engine.endsByItself;
        plan.pause = storm_.below(400'000);
        if (storm_.oneIn(6)) {
            plan.timeout = storm_.below(20) / 1000.0;
        }
        return plan;
    }

    /// Whether the outcome is one of those that the plan allows.
    static bool isAllowed(const Plan& plan, const std::string& outcome) {
        if (outcome == "timedOut") {
            return plan.timeout < patience;
        }
        if (outcome == "launchFailed") {
            // The pipe does not hold the credential. An engine that only ends early was asked to, and that is no
            // failure.
            return plan.engine->closesItsInput && plan.credential && plan.credential->size() > 60'000;
        }
        if (outcome == "operationAlreadyRunning") {
            return plan.isDoubled;
        }
        for (const int exitCode : plan.engine->exitCodes) {
            if (outcome == std::to_string(exitCode)) {
                return true;
            }
        }
        return plan.isCancelled && outcome == std::to_string(SIGTERM);
    }

    std::string outcomeOf(const Plan& plan, const std::stop_token& stopToken) {
        try {
            return std::to_string(run(plan.engine->arguments, plan.credential, plan.timeout, stopToken).exitCode);
        } catch (Error error) {
            return std::string(nameOf(error));
        }
    }

    void note(const Plan& plan, const std::string& outcome) {
        EXPECT_TRUE(isAllowed(plan, outcome)) << plan.engine->arguments.front() << " ended in " << outcome;
        ++outcomes_[outcome];
    }

    /// One run, or two at once, and a cancellation from a third thread.
    int runOnce() {
        const Plan plan = this->plan();
        std::stop_source source;
        std::string second;
        std::thread doubled;
        if (plan.isDoubled) {
            doubled = std::thread([&] { second = outcomeOf(plan, source.get_token()); });
        }
        std::thread cancelling;
        if (plan.isCancelled) {
            cancelling = std::thread([&] {
                for (std::atomic<int> pause = 0; pause < plan.pause; ++pause) {
                }
                source.request_stop();
                runner_.cancelCurrentOperation();
            });
        }
        note(plan, outcomeOf(plan, source.get_token()));
        if (doubled.joinable()) {
            // A run that began after the request finds the token stopped.
            doubled.join();
            note(plan, second);
        }
        if (cancelling.joinable()) {
            cancelling.join();
        }
        return plan.isDoubled ? 2 : 1;
    }

    void expectNothingLeft(const std::map<int, std::string>& descriptors) const {
        EXPECT_EQ(privateDirectories(), std::set<std::string>());
        EXPECT_EQ(openDescriptors(), descriptors);
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child process is left";
    }

    void print() const {
        for (const auto& [outcome, count] : outcomes_) {
            std::cout << count << " times " << outcome << "\n";
        }
    }

    Storm& storm() { return storm_; }

private:
    Storm storm_;
    Outcomes outcomes_;
};

} // namespace

TEST_F(ProcessRunnerStormTest, leavesNothingBehindAndEndsAsItsEnginesDo) {
    constexpr int runsBetweenLooks = 50;
    const std::map<int, std::string> descriptors = openDescriptors();
    int sinceLook = 0;
    for (int count = 0; count < storm().runs() && !HasFailure();) {
        const int more = runOnce();
        count += more;
        sinceLook += more;
        if (sinceLook >= runsBetweenLooks) {
            expectNothingLeft(descriptors);
            sinceLook = 0;
        }
    }
    print();
}
