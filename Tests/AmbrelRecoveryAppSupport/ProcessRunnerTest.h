#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "Support/NamedPipe.h"
#include "Support/ScopedEnvironment.h"
#include "Support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The error's name; for messages, and found by GoogleTest.
std::string_view nameOf(AmbrelRecoveryProcessError error);
void PrintTo(AmbrelRecoveryProcessError error, std::ostream* stream);

/// The bytes of a text, as the runner takes them.
std::span<const std::byte> bytesOf(std::string_view text);

/// The lines of an engine's report.
std::vector<std::string> linesOf(std::string_view text);

/// The lines that begin with `word` and a blank, without these.
std::vector<std::string> valuesOf(std::string_view report, std::string_view word);

/// What misbehaving-engine's "echo-input" prints for this input.
std::string echoOf(std::string_view input);

/// The names in `directory` that begin like a run's private directory.
std::set<std::string> privateDirectoriesIn(const std::filesystem::path& directory);

/// The AmbrelRecoveryProcessError that the call throws, or none.
template<typename Call>
std::optional<AmbrelRecoveryProcessError> errorOf(const Call& call) {
    try {
        call();
    } catch (AmbrelRecoveryProcessError error) {
        return error;
    }
    return std::nullopt;
}

/// A runner of misbehaving-engine with a temporary directory of its own. After every test it checks what must hold
/// after any outcome of any run: no private directory, no process and no descriptor is left.
class ProcessRunnerTest : public testing::Test {
protected:
    using Error = AmbrelRecoveryProcessError;
    using Result = AmbrelRecoveryProcessResult;

    /// A time-out that ends a test that hangs, and no other.
    static constexpr double patience = 120;

    ProcessRunnerTest();
    void SetUp() override;
    void TearDown() override;

    Result run(const std::vector<std::string>& arguments, std::optional<std::string_view> credential = std::nullopt,
               double timeout = patience, const std::stop_token& stopToken = {});

    /// What run() throws, or none.
    std::optional<Error> errorOfRun(const std::vector<std::string>& arguments,
                                    std::optional<std::string_view> credential = std::nullopt,
                                    double timeout = patience);

    /// What a run of another executable throws, or none.
    static std::optional<Error> errorOfRunning(const std::filesystem::path& executable,
                                               std::optional<std::string_view> credential = std::nullopt);

    std::set<std::string> privateDirectories() const { return privateDirectoriesIn(temporary_); }

    const TemporaryDirectory directory_;
    /// What TMPDIR names.
    const std::filesystem::path temporary_;
    AmbrelRecoveryProcessRunner runner_;

private:
    const ScopedEnvironment temporaryVariable_;
    std::map<int, std::string> descriptorsBefore_;
};

/// The same with engines that say what they do, and wait at a gate.
class ConversingProcessRunnerTest : public ProcessRunnerTest {
protected:
    ConversingProcessRunnerTest();

    /// Waits for a line of the engine's log.
    std::string awaitLog(std::string_view beginning) { return log_.readUntil(beginning); }

    /// Waits for an engine to start and returns its process identifier.
    pid_t awaitStart();

    /// Runs an engine that cancel() can reach from another thread, as the application does it.
    Result runCancellable(const std::vector<std::string>& arguments,
                          std::optional<std::string_view> credential = std::nullopt) {
        return run(arguments, credential, patience, cancellation_.get_token());
    }

    void cancel() {
        cancellation_.request_stop();
        runner_.cancelCurrentOperation();
    }

    /// Lets one waiting engine go on.
    void openGate() { gate_.write("."); }

private:
    NamedPipe log_;
    NamedPipe gate_;
    std::stop_source cancellation_;
    const ScopedEnvironment logVariable_;
    const ScopedEnvironment gateVariable_;
};
