#include "HungFolder.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

#include <dlfcn.h>
#include <sys/types.h>

namespace {

struct Hung {
    std::mutex mutex;
    std::condition_variable answers;
    std::string path;
    int calls = 0;
    bool answersOthers = false;
    std::thread::id maker;
    int callsOfMaker = 0;

    bool contains(const std::string& asked) const {
        return !path.empty() && (asked == path || asked.starts_with(path + '/'));
    }
};

/// Never destroyed: threads may call to the end.
Hung& hung() {
    static auto* const hung = new Hung;
    return *hung;
}

void hangIn(const char* path) {
    std::unique_lock lock(hung().mutex);
    if (!hung().contains(path)) {
        return;
    }
    if (std::this_thread::get_id() == hung().maker) {
        ++hung().callsOfMaker;
        return;
    }
    if (hung().answersOthers) {
        return;
    }
    ++hung().calls;
    hung().answers.wait(lock, [] { return hung().path.empty(); });
    --hung().calls;
}

template<typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

HungFolder::HungFolder(const std::filesystem::path& path, Answers answers) {
    const std::lock_guard lock(hung().mutex);
    hung().path = path.native();
    hung().answersOthers = answers == Answers::toOtherThreads;
    hung().maker = std::this_thread::get_id();
    hung().callsOfMaker = 0;
}

HungFolder::~HungFolder() {
    const std::lock_guard lock(hung().mutex);
    hung().path.clear();
    hung().answers.notify_all();
}

int HungFolder::hangingCalls() {
    const std::lock_guard lock(hung().mutex);
    return hung().calls;
}

int HungFolder::callsOfThisThread() {
    const std::lock_guard lock(hung().mutex);
    return hung().callsOfMaker;
}

// Named by their labels, as the system's headers declare functions of these names with attributes of their own. Each
// takes the arguments that the system's takes.
extern "C" {

#define HANGING(name, Result, parameters, path, ...)                                                                   \
    Result hanging_##name parameters __asm__(#name);                                                                   \
    Result hanging_##name parameters {                                                                                 \
        hangIn(path);                                                                                                  \
        return next<decltype(&hanging_##name)>(#name)(__VA_ARGS__);                                                    \
    }

HANGING(access, int, (const char* path, int mode), path, path, mode)
HANGING(inotify_add_watch, int, (int watch, const char* path, std::uint32_t mask), path, watch, path, mask)
HANGING(lstat, int, (const char* path, void* result), path, path, result)
HANGING(lstat64, int, (const char* path, void* result), path, path, result)
HANGING(mkdir, int, (const char* path, mode_t mode), path, path, mode)
HANGING(open, int, (const char* path, int flags, mode_t mode), path, path, flags, mode)
HANGING(open64, int, (const char* path, int flags, mode_t mode), path, path, flags, mode)
HANGING(opendir, void*, (const char* path), path, path)
HANGING(readlink, ssize_t, (const char* path, char* result, std::size_t size), path, path, result, size)
HANGING(realpath, char*, (const char* path, char* result), path, path, result)
HANGING(stat, int, (const char* path, void* result), path, path, result)
HANGING(stat64, int, (const char* path, void* result), path, path, result)
HANGING(statvfs, int, (const char* path, void* result), path, path, result)
HANGING(statvfs64, int, (const char* path, void* result), path, path, result)
HANGING(statx, int, (int folder, const char* path, int flags, unsigned mask, void* result), path, folder, path, flags,
        mask, result)

} // extern "C"
