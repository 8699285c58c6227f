#include "ProcessRunnerTest.h"

#include "Support/MisbehavingEngine.h"
#include "Support/OpenDescriptors.h"
#include "Support/TestFiles.h"

#include <cerrno>
#include <sstream>

#include <sys/wait.h>

std::string_view nameOf(AmbrelRecoveryProcessError error) {
    switch (error) {
    case AmbrelRecoveryProcessError::executableUnavailable:
        return "executableUnavailable";
    case AmbrelRecoveryProcessError::operationAlreadyRunning:
        return "operationAlreadyRunning";
    case AmbrelRecoveryProcessError::temporaryOutputUnavailable:
        return "temporaryOutputUnavailable";
    case AmbrelRecoveryProcessError::launchFailed:
        return "launchFailed";
    case AmbrelRecoveryProcessError::timedOut:
        return "timedOut";
    }
    return "no such error";
}

void PrintTo(AmbrelRecoveryProcessError error, std::ostream* stream) {
    *stream << nameOf(error);
}

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
}

std::vector<std::string> linesOf(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> valuesOf(std::string_view report, std::string_view word) {
    const std::string beginning = std::string(word) + " ";
    std::vector<std::string> values;
    for (const std::string& line : linesOf(report)) {
        if (line.starts_with(beginning)) {
            values.push_back(line.substr(beginning.size()));
        }
    }
    return values;
}

std::string echoOf(std::string_view input) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string line = "input " + std::to_string(input.size()) + " ";
    for (const char character : input) {
        line += digits[static_cast<unsigned char>(character) / 16];
        line += digits[static_cast<unsigned char>(character) % 16];
    }
    return line + "\n";
}

std::set<std::string> privateDirectoriesIn(const std::filesystem::path& directory) {
    std::set<std::string> found = TestFiles::names(directory);
    std::erase_if(found, [](const std::string& name) { return !name.starts_with("com.ambrel.recovery-output."); });
    return found;
}

ProcessRunnerTest::ProcessRunnerTest()
    : temporary_(directory_ / "tmp"), runner_(misbehavingEngine()), temporaryVariable_("TMPDIR", temporary_.string()) {
    std::filesystem::create_directory(temporary_);
}

void ProcessRunnerTest::SetUp() {
    descriptorsBefore_ = openDescriptors();
}

void ProcessRunnerTest::TearDown() {
    EXPECT_EQ(privateDirectories(), std::set<std::string>());
    EXPECT_EQ(openDescriptors(), descriptorsBefore_);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child process is left";
    EXPECT_EQ(errno, ECHILD);
}

ProcessRunnerTest::Result ProcessRunnerTest::run(const std::vector<std::string>& arguments,
                                                 std::optional<std::string_view> credential, double timeout,
                                                 const std::stop_token& stopToken) {
    std::optional<std::span<const std::byte>> bytes;
    if (credential) {
        bytes = bytesOf(*credential);
    }
    return runner_.run(arguments, bytes, timeout, stopToken);
}

std::optional<ProcessRunnerTest::Error> ProcessRunnerTest::errorOfRun(const std::vector<std::string>& arguments,
                                                                      std::optional<std::string_view> credential,
                                                                      double timeout) {
    return errorOf([&] { run(arguments, credential, timeout); });
}

std::optional<ProcessRunnerTest::Error> ProcessRunnerTest::errorOfRunning(const std::filesystem::path& executable,
                                                                          std::optional<std::string_view> credential) {
    std::optional<std::span<const std::byte>> bytes;
    if (credential) {
        bytes = bytesOf(*credential);
    }
    return errorOf([&] { AmbrelRecoveryProcessRunner(executable).run({"exit", "0"}, bytes, patience); });
}

ConversingProcessRunnerTest::ConversingProcessRunnerTest()
    : log_(directory_ / "log"), gate_(directory_ / "gate"),
      logVariable_("AMBREL_TEST_ENGINE_LOG", log_.path().string()),
      gateVariable_("AMBREL_TEST_ENGINE_GATE", gate_.path().string()) {}

pid_t ConversingProcessRunnerTest::awaitStart() {
    return std::stoi(awaitLog("started ").substr(std::string_view("started ").size()));
}
