#include "CountedFileCalls.h"

#include <atomic>
#include <cstdarg>

#include <dlfcn.h>
#include <fcntl.h>

namespace {

std::atomic<std::size_t> stateCount = 0;
std::atomic<std::size_t> openingCount = 0;

template<typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

mode_t modeFrom(int flags, va_list rest) {
    return (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
}

} // namespace

CountedFileCalls CountedFileCalls::total() {
    return {stateCount, openingCount};
}

// Named by their labels, as the system's headers declare functions of these names with attributes of their own.
extern "C" {

int countedStat(const char* path, void* result) __asm__("stat");
int countedLstat(const char* path, void* result) __asm__("lstat");
int countedFstatat(int folder, const char* path, void* result, int flags) __asm__("fstatat");
int countedStatx(int folder, const char* path, int flags, unsigned mask, void* result) __asm__("statx");
int countedOpen(const char* path, int flags, ...) __asm__("open");
int countedOpen64(const char* path, int flags, ...) __asm__("open64");
void* countedFopen(const char* path, const char* mode) __asm__("fopen");
void* countedFopen64(const char* path, const char* mode) __asm__("fopen64");

int countedStat(const char* path, void* result) {
    ++stateCount;
    return next<decltype(&countedStat)>("stat")(path, result);
}

int countedLstat(const char* path, void* result) {
    ++stateCount;
    return next<decltype(&countedLstat)>("lstat")(path, result);
}

int countedFstatat(int folder, const char* path, void* result, int flags) {
    ++stateCount;
    return next<decltype(&countedFstatat)>("fstatat")(folder, path, result, flags);
}

int countedStatx(int folder, const char* path, int flags, unsigned mask, void* result) {
    ++stateCount;
    return next<decltype(&countedStatx)>("statx")(folder, path, flags, mask, result);
}

int countedOpen(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeFrom(flags, rest);
    va_end(rest);
    ++openingCount;
    return next<decltype(&countedOpen)>("open")(path, flags, mode);
}

int countedOpen64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeFrom(flags, rest);
    va_end(rest);
    ++openingCount;
    return next<decltype(&countedOpen64)>("open64")(path, flags, mode);
}

void* countedFopen(const char* path, const char* mode) {
    ++openingCount;
    return next<decltype(&countedFopen)>("fopen")(path, mode);
}

void* countedFopen64(const char* path, const char* mode) {
    ++openingCount;
    return next<decltype(&countedFopen64)>("fopen64")(path, mode);
}

} // extern "C"
