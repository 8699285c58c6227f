// The calls that SystemCallFaults decides about. Defined in the program itself, they stand before those of the
// libraries for every caller, the libraries included; only what the C library calls within itself passes by.

#include "FaultedCall.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <ctime>
#include <new>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The next definition of the function: a sanitizer's, or the C library's.
template<typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Makes the call unless it has to fail.
template<typename Result, typename Call>
Result faulted(const char* name, Result failure, const Call& call) {
    if (const int error = FaultedCall::error(name); error != 0) {
        FaultedCall::done(name);
        errno = error;
        return failure;
    }
    const Result result = call();
    FaultedCall::done(name);
    return result;
}

/// The mode behind the flags, where they ask for one.
mode_t modeOf(int flags, va_list rest) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

} // namespace

void* operator new(std::size_t size) {
    void* const memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return FaultedCall::error("new") != 0 ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

extern "C" {

int access(const char* path, int mode) noexcept {
    static auto* const real = next<int(const char*, int)>("access");
    return faulted("access", -1, [&] { return real(path, mode); });
}

int chmod(const char* path, mode_t mode) noexcept {
    static auto* const real = next<int(const char*, mode_t)>("chmod");
    return faulted("chmod", -1, [&] { return real(path, mode); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
    static auto* const real = next<int(int, mode_t)>("fchmod");
    return faulted("fchmod", -1, [&] { return real(descriptor, mode); });
}

int fchmodat(int directory, const char* path, mode_t mode, int flags) noexcept {
    static auto* const real = next<int(int, const char*, mode_t, int)>("fchmodat");
    return faulted("fchmodat", -1, [&] { return real(directory, path, mode, flags); });
}

int stat(const char* path, struct stat* status) noexcept {
    static auto* const real = next<int(const char*, struct stat*)>("stat");
    return faulted("stat", -1, [&] { return real(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
    static auto* const real = next<int(const char*, struct stat*)>("lstat");
    return faulted("lstat", -1, [&] { return real(path, status); });
}

int fstat(int descriptor, struct stat* status) noexcept {
    static auto* const real = next<int(int, struct stat*)>("fstat");
    return faulted("fstat", -1, [&] { return real(descriptor, status); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    static auto* const real = next<int(const char*, mode_t)>("mkdir");
    return faulted("mkdir", -1, [&] { return real(path, mode); });
}

int rmdir(const char* path) noexcept {
    static auto* const real = next<int(const char*)>("rmdir");
    return faulted("rmdir", -1, [&] { return real(path); });
}

int unlink(const char* path) noexcept {
    static auto* const real = next<int(const char*)>("unlink");
    return faulted("unlink", -1, [&] { return real(path); });
}

int unlinkat(int directory, const char* path, int flags) noexcept {
    static auto* const real = next<int(int, const char*, int)>("unlinkat");
    return faulted("unlinkat", -1, [&] { return real(directory, path, flags); });
}

int flock(int descriptor, int operation) noexcept {
    static auto* const real = next<int(int, int)>("flock");
    return faulted("flock", -1, [&] { return real(descriptor, operation); });
}

int open(const char* path, int flags, ...) {
    static auto* const real = next<int(const char*, int, ...)>("open");
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return faulted("open", -1, [&] { return real(path, flags, mode); });
}

int openat(int directory, const char* path, int flags, ...) {
    static auto* const real = next<int(int, const char*, int, ...)>("openat");
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return faulted("openat", -1, [&] { return real(directory, path, flags, mode); });
}

/// Every command that this project uses takes a number or nothing.
int fcntl(int descriptor, int command, ...) {
    static auto* const real = next<int(int, int, ...)>("fcntl");
    va_list rest;
    va_start(rest, command);
    const long argument = va_arg(rest, long);
    va_end(rest);
    return faulted("fcntl", -1, [&] { return real(descriptor, command, argument); });
}

int close(int descriptor) {
    static auto* const real = next<int(int)>("close");
    // A close that fails has closed all the same.
    const int result = real(descriptor);
    return faulted("close", -1, [&] { return result; });
}

DIR* fdopendir(int descriptor) {
    static auto* const real = next<DIR*(int)>("fdopendir");
    return faulted("fdopendir", static_cast<DIR*>(nullptr), [&] { return real(descriptor); });
}

dirent* readdir(DIR* stream) {
    static auto* const real = next<dirent*(DIR*)>("readdir");
    return faulted("readdir", static_cast<dirent*>(nullptr), [&] { return real(stream); });
}

int pipe2(int* ends, int flags) noexcept {
    static auto* const real = next<int(int*, int)>("pipe2");
    return faulted("pipe2", -1, [&] { return real(ends, flags); });
}

ssize_t getrandom(void* bytes, size_t count, unsigned flags) {
    static auto* const real = next<ssize_t(void*, size_t, unsigned)>("getrandom");
    return faulted("getrandom", ssize_t{-1}, [&] { return real(bytes, count, flags); });
}

ssize_t write(int descriptor, const void* bytes, size_t count) {
    static auto* const real = next<ssize_t(int, const void*, size_t)>("write");
    return faulted("write", ssize_t{-1}, [&] { return real(descriptor, bytes, FaultedCall::length(count)); });
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t place) {
    static auto* const real = next<ssize_t(int, void*, size_t, off_t)>("pread");
    return faulted("pread", ssize_t{-1}, [&] { return real(descriptor, bytes, FaultedCall::length(count), place); });
}

ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    static auto* const real = next<ssize_t(const char*, char*, size_t)>("readlink");
    return faulted("readlink", ssize_t{-1}, [&] { return real(path, target, size); });
}

int poll(pollfd* descriptors, nfds_t count, int limit) {
    static auto* const real = next<int(pollfd*, nfds_t, int)>("poll");
    FaultedCall::waits(limit);
    return faulted("poll", -1, [&] { return real(descriptors, count, limit); });
}

int waitid(idtype_t type, id_t identifier, siginfo_t* information, int options) {
    static auto* const real = next<int(idtype_t, id_t, siginfo_t*, int)>("waitid");
    return faulted("waitid", -1, [&] { return real(type, identifier, information, options); });
}

int clock_gettime(clockid_t clock, timespec* time) noexcept {
    static auto* const real = next<int(clockid_t, timespec*)>("clock_gettime");
    const int result = real(clock, time);
    if (clock == CLOCK_REALTIME) {
        time->tv_sec += FaultedCall::secondsSetForward();
    }
    return result;
}

int pidfd_send_signal(int descriptor, int signal, siginfo_t* information, unsigned flags) noexcept {
    static auto* const real = next<int(int, int, siginfo_t*, unsigned)>("pidfd_send_signal");
    return faulted("pidfd_send_signal", -1, [&] { return real(descriptor, signal, information, flags); });
}

int sigtimedwait(const sigset_t* awaited, siginfo_t* information, const timespec* limit) {
    static auto* const real = next<int(const sigset_t*, siginfo_t*, const timespec*)>("sigtimedwait");
    return faulted("sigtimedwait", -1, [&] { return real(awaited, information, limit); });
}

/// Cannot fail; its “failure” is that this process has become another one.
pid_t getpid() noexcept {
    static auto* const real = next<pid_t()>("getpid");
    return FaultedCall::error("getpid") != 0 ? getppid() : real();
}

int kill(pid_t identifier, int signal) noexcept {
    static auto* const real = next<int(pid_t, int)>("kill");
    return faulted("kill", -1, [&] { return real(identifier, signal); });
}

/// Only as this project calls it: under this name, and with one argument behind the context, where the descriptor goes.
int __clone(int (*function)(void*), void* stack, int flags, void* context, ...) noexcept {
    static auto* const real = next<int(int (*)(void*), void*, int, void*, ...)>("__clone");
    va_list rest;
    va_start(rest, context);
    int* const descriptor = va_arg(rest, int*);
    va_end(rest);
    return faulted("clone", -1, [&] { return real(function, stack, flags, context, descriptor); });
}

void* mmap(void* address, size_t length, int protection, int flags, int descriptor, off_t offset) noexcept {
    static auto* const real = next<void*(void*, size_t, int, int, int, off_t)>("mmap");
    return faulted("mmap", MAP_FAILED, [&] { return real(address, length, protection, flags, descriptor, offset); });
}

int munmap(void* address, size_t length) noexcept {
    static auto* const real = next<int(void*, size_t)>("munmap");
    return faulted("munmap", -1, [&] { return real(address, length); });
}

int mlock(const void* address, size_t length) noexcept {
    static auto* const real = next<int(const void*, size_t)>("mlock");
    return faulted("mlock", -1, [&] { return real(address, length); });
}

int madvise(void* address, size_t length, int advice) noexcept {
    static auto* const real = next<int(void*, size_t, int)>("madvise");
    return faulted("madvise", -1, [&] { return real(address, length, advice); });
}

} // extern "C"
