// Preloaded into the application: a question about the path in AMBREL_SLOW_PATH is not answered before the file
// AMBREL_SLOW_GATE is there. Its beginning, with the kind of its thread, and its end are lines in the file
// AMBREL_SLOW_LOG.

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <thread>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds pause(20);

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

bool isGateOpen() {
    const int gate = ::open(std::getenv("AMBREL_SLOW_GATE"), O_RDONLY | O_CLOEXEC);
    if (gate >= 0) {
        ::close(gate);
    }
    return gate >= 0;
}

void answerSlowly(const char* path) {
    if (isSlow(path)) {
        note(::gettid() == ::getpid() ? "main thread\n" : "other thread\n");
        while (!isGateOpen()) {
            std::this_thread::sleep_for(pause);
        }
        note("answered\n");
    }
}

} // namespace

// Named by their labels, as the system's headers declare functions of these names with attributes of their own.
extern "C" {

#define SLOW(name, parameters, path, ...)                                                                              \
    [[gnu::visibility("default")]] int slow_##name parameters __asm__(#name);                                          \
    int slow_##name parameters {                                                                                       \
        static const auto next = reinterpret_cast<decltype(&slow_##name)>(::dlsym(RTLD_NEXT, #name));                  \
        answerSlowly(path);                                                                                            \
        return next(__VA_ARGS__);                                                                                      \
    }

SLOW(access, (const char* path, int mode), path, path, mode)
SLOW(lstat, (const char* path, void* result), path, path, result)
SLOW(stat, (const char* path, void* result), path, path, result)
SLOW(statvfs, (const char* path, void* result), path, path, result)
SLOW(statx, (int folder, const char* path, int flags, unsigned mask, void* result), path, folder, path, flags, mask,
     result)

} // extern "C"
