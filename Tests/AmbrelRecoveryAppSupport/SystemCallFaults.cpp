#include "SystemCallFaults.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace {

struct Fault {
    std::string name;
    int occurrence;
    int error;
};

std::vector<Fault> faults;
std::map<std::string, int, std::less<>> counts;
std::map<std::string, std::function<void()>, std::less<>> actionsDuringCalls;
bool singleBytes = false;

/// The error with which this call has to fail, or 0.
int errorOfCall(std::string_view name) {
    const int count = ++counts[std::string(name)];
    const auto fault = std::ranges::find_if(
        faults, [&](const Fault& wanted) { return wanted.name == name && wanted.occurrence == count; });
    return fault == faults.end() ? 0 : fault->error;
}

/// Counts the call and makes it, unless it has to fail.
template<typename Result, typename Call>
Result guarded(std::string_view name, Result failure, const Call& call) {
    if (const int error = errorOfCall(name); error != 0) {
        errno = error;
        return failure;
    }
    const Result result = call();
    if (const auto action = actionsDuringCalls.find(name); action != actionsDuringCalls.end()) {
        const std::function<void()> once = std::move(action->second);
        actionsDuringCalls.erase(action);
        once();
    }
    return result;
}

} // namespace

void SystemCallFaults::reset() {
    faults.clear();
    counts.clear();
    actionsDuringCalls.clear();
    singleBytes = false;
}

void SystemCallFaults::fail(std::string_view name, int occurrence, int error) {
    faults.push_back({std::string(name), calls(name) + occurrence, error});
}

void SystemCallFaults::during(std::string_view name, std::function<void()> action) {
    actionsDuringCalls[std::string(name)] = std::move(action);
}

void SystemCallFaults::moveSingleBytes() {
    singleBytes = true;
}

int SystemCallFaults::calls(std::string_view name) {
    const auto count = counts.find(name);
    return count == counts.end() ? 0 : count->second;
}

// The names are the linker's.
extern "C" {

int __real_mkdir(const char*, mode_t);
int __real_chmod(const char*, mode_t);
int __real_fchmod(int, mode_t);
int __real_open(const char*, int, ...);
int __real_close(int);
int __real_pipe2(int*, int);
int __real_posix_spawn(pid_t*, const char*, const posix_spawn_file_actions_t*, const posix_spawnattr_t*, char* const*,
                       char* const*);
int __real_pidfd_open(pid_t, unsigned);
int __real_pidfd_send_signal(int, int, siginfo_t*, unsigned);
int __real_kill(pid_t, int);
int __real_poll(pollfd*, nfds_t, int);
int __real_waitid(idtype_t, id_t, siginfo_t*, int);
ssize_t __real_write(int, const void*, size_t);
ssize_t __real_read(int, void*, size_t);
void* __real_mmap(void*, size_t, int, int, int, off_t);

int __wrap_mkdir(const char* path, mode_t mode) {
    return guarded("mkdir", -1, [&] { return __real_mkdir(path, mode); });
}

int __wrap_chmod(const char* path, mode_t mode) {
    return guarded("chmod", -1, [&] { return __real_chmod(path, mode); });
}

int __wrap_fchmod(int descriptor, mode_t mode) {
    return guarded("fchmod", -1, [&] { return __real_fchmod(descriptor, mode); });
}

int __wrap_open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return guarded("open", -1, [&] { return __real_open(path, flags, mode); });
}

int __wrap_close(int descriptor) {
    const int result = __real_close(descriptor);
    return guarded("close", -1, [&] { return result; });
}

int __wrap_pipe2(int* ends, int flags) {
    return guarded("pipe2", -1, [&] { return __real_pipe2(ends, flags); });
}

int __wrap_posix_spawn(pid_t* identifier, const char* path, const posix_spawn_file_actions_t* actions,
                       const posix_spawnattr_t* attributes, char* const* arguments, char* const* environment) {
    const int error = errorOfCall("posix_spawn");
    return error != 0 ? error : __real_posix_spawn(identifier, path, actions, attributes, arguments, environment);
}

int __wrap_pidfd_open(pid_t identifier, unsigned flags) {
    return guarded("pidfd_open", -1, [&] { return __real_pidfd_open(identifier, flags); });
}

int __wrap_pidfd_send_signal(int descriptor, int signal, siginfo_t* information, unsigned flags) {
    return guarded("pidfd_send_signal", -1,
                   [&] { return __real_pidfd_send_signal(descriptor, signal, information, flags); });
}

int __wrap_kill(pid_t identifier, int signal) {
    return guarded("kill", -1, [&] { return __real_kill(identifier, signal); });
}

int __wrap_poll(pollfd* descriptors, nfds_t count, int limit) {
    return guarded("poll", -1, [&] { return __real_poll(descriptors, count, limit); });
}

int __wrap_waitid(idtype_t type, id_t identifier, siginfo_t* information, int options) {
    return guarded("waitid", -1, [&] { return __real_waitid(type, identifier, information, options); });
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t count) {
    return guarded("write", ssize_t{-1},
                   [&] { return __real_write(descriptor, bytes, singleBytes ? std::min<size_t>(count, 1) : count); });
}

ssize_t __wrap_read(int descriptor, void* bytes, size_t count) {
    return guarded("read", ssize_t{-1},
                   [&] { return __real_read(descriptor, bytes, singleBytes ? std::min<size_t>(count, 1) : count); });
}

void* __wrap_mmap(void* address, size_t length, int protection, int flags, int descriptor, off_t offset) {
    return guarded("mmap", MAP_FAILED,
                   [&] { return __real_mmap(address, length, protection, flags, descriptor, offset); });
}

} // extern "C"
