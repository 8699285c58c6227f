// In every test program: a test that does not end, or that takes all the memory there is, ends its program, which says
// which test it was. AMBREL_TEST_SECONDS sets another limit, for runs that are longer than usual.

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr unsigned int defaultSeconds = 300;
/// The longest document takes eight. Sanitizers reserve much more than they use, and the same tests
/// have run without them before.
constexpr rlim_t mostBytes = rlim_t{10} << 30;

std::string runningTest;

void endProgram(int) {
    const auto say = [](std::string_view text) { return write(STDERR_FILENO, text.data(), text.size()); };
    static_cast<void>(say("\nNo end within the limit of time: "));
    static_cast<void>(say(runningTest));
    static_cast<void>(say("\n"));
    _exit(1);
}

class TestLimits : public testing::EmptyTestEventListener {
public:
    TestLimits() {
        if (const char* const seconds = std::getenv("AMBREL_TEST_SECONDS")) {
            seconds_ = static_cast<unsigned int>(std::stoul(seconds));
        }
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
        rlimit limit = {};
        getrlimit(RLIMIT_DATA, &limit);
        limit.rlim_cur = std::min(limit.rlim_max, mostBytes);
        setrlimit(RLIMIT_DATA, &limit);
#endif
        std::signal(SIGALRM, endProgram);
    }

    void OnTestStart(const testing::TestInfo& test) override {
        runningTest = std::string(test.test_suite_name()) + "." + test.name();
        alarm(seconds_);
    }

    void OnTestEnd(const testing::TestInfo&) override {
        alarm(0);
    }

private:
    unsigned int seconds_ = defaultSeconds;
};

// The listeners of GoogleTest own what they are given.
[[maybe_unused]] const bool installed = (testing::UnitTest::GetInstance()->listeners().Append(new TestLimits), true);

} // namespace
