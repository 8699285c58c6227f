#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "Support/NamedPipe.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/wait.h>

namespace {

constexpr const char* times = "20";

class UserDefaultsOfProcessesTest : public testing::Test {
protected:
    /// Starts another process that waits at the gate to save `language` under `key`.
    pid_t startSaving(const std::string& language, const std::string& key) {
        const char* const arguments[] = {AMBREL_LANGUAGE_SAVER, language.c_str(),     key.c_str(), times,
                                         ready_.path().c_str(), gate_.path().c_str(), nullptr};
        pid_t process = 0;
        EXPECT_EQ(::posix_spawn(&process, AMBREL_LANGUAGE_SAVER, nullptr, nullptr, const_cast<char* const*>(arguments),
                                environ),
                  0);
        EXPECT_EQ(ready_.readLine(), "ready");
        return process;
    }

    /// Whether the process is still running; a process that has ended must have found what it saved.
    static bool isRunning(pid_t& process) {
        int status = -1;
        if (process != 0 && ::waitpid(process, &status, WNOHANG) == process) {
            EXPECT_EQ(status, 0) << "a choice was lost";
            process = 0;
        }
        return process != 0;
    }

    TemporaryDirectory folder_;
    NamedPipe ready_{folder_.path() / "ready"};
    NamedPipe gate_{folder_.path() / "gate"};
    std::shared_ptr<AmbrelUserDefaults> defaults_ = emptyStandardUserDefaults();
};

TEST_F(UserDefaultsOfProcessesTest, keepWhatEachProcessSavesAtTheSameTime) {
    const QString untouched = QStringLiteral("untouched");
    ASSERT_TRUE(defaults_->setString(untouched, QStringLiteral("here")));
    // The texts have different lengths, because a save at the same moment that keeps the file's length may be missed.
    pid_t first = startSaving("pt-BR", "first");
    pid_t second = startSaving("zh-Hans", "second");
    gate_.write("..");
    for (bool areRunning = true; areRunning;) {
        // Both are asked: each tells only once that it has ended.
        const bool isFirstRunning = isRunning(first);
        areRunning = isRunning(second) || isFirstRunning;
        ASSERT_EQ(defaults_->string(untouched), QStringLiteral("here")) << "the file is whole at every moment";
    }
    EXPECT_EQ(defaults_->string(QStringLiteral("first")), QStringLiteral("pt-BR"));
    EXPECT_EQ(defaults_->string(QStringLiteral("second")), QStringLiteral("zh-Hans"));
}

} // namespace
