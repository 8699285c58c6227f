#include "HungFolder.h"

#include <condition_variable>
#include <mutex>
#include <string>

#include <dlfcn.h>

namespace {

struct Hung {
    std::mutex mutex;
    std::condition_variable answers;
    std::string path;
    int calls = 0;
};

/// Never destroyed: threads may call to the end.
Hung& hung() {
    static auto* const hung = new Hung;
    return *hung;
}

void hangIn(const char* path) {
    std::unique_lock lock(hung().mutex);
    if (hung().path.empty() || hung().path != path) {
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

HungFolder::HungFolder(const std::filesystem::path& path) {
    const std::lock_guard lock(hung().mutex);
    hung().path = path.native();
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

// Named by their labels, as the system's headers declare functions of these names with attributes of their own.
extern "C" {

void* hangingOpendir(const char* path) __asm__("opendir");
int hangingStat(const char* path, void* result) __asm__("stat");

void* hangingOpendir(const char* path) {
    hangIn(path);
    return next<decltype(&hangingOpendir)>("opendir")(path);
}

int hangingStat(const char* path, void* result) {
    hangIn(path);
    return next<decltype(&hangingStat)>("stat")(path, result);
}

} // extern "C"
