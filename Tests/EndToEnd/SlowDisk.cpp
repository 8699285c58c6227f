// Preloaded into the application: every `stat` of the path in AMBREL_SLOW_PATH takes four seconds. Its beginning, with
// the kind of its thread, and its end are lines in the file AMBREL_SLOW_LOG.

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <thread>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds slowness(4);

bool isSlow(const char* path) {
    const char* const slow = std::getenv("AMBREL_SLOW_PATH");
    return slow != nullptr && path != nullptr && std::string_view(path) == slow;
}

void note(std::string_view line) {
    const int log = ::open(std::getenv("AMBREL_SLOW_LOG"), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (log < 0 || ::write(log, line.data(), line.size()) < 0) {
        std::abort();
    }
    ::close(log);
}

} // namespace

// Named by its label, as the system's headers declare it with attributes of their own.
extern "C" {

[[gnu::visibility("default")]] int slowStat(const char* path, void* result) __asm__("stat");

int slowStat(const char* path, void* result) {
    static const auto next = reinterpret_cast<decltype(&slowStat)>(::dlsym(RTLD_NEXT, "stat"));
    if (!isSlow(path)) {
        return next(path, result);
    }
    note(::gettid() == ::getpid() ? "main thread\n" : "other thread\n");
    std::this_thread::sleep_for(slowness);
    note("answered\n");
    return next(path, result);
}

} // extern "C"
