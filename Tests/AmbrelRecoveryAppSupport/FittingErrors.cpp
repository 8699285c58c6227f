#include "FittingErrors.h"

#include <cerrno>

const FittingErrors::Errors& FittingErrors::ofCalls() {
    static const Errors errors = {
        {"access", {EACCES, EIO, ENOMEM, EROFS}},
        {"chmod", {EACCES, EINTR, EIO, ENOMEM, EPERM, EROFS}},
        {"clone", {EAGAIN, ENOMEM, ENOSPC, EPERM}},
        {"close", {EINTR, EIO, ENOSPC}},
        {"fchmod", {EINTR, EIO, EPERM, EROFS}},
        {"fchmodat", {EACCES, EIO, ENOMEM, EOPNOTSUPP, EROFS}},
        // Where a security module of the system forbids it.
        {"fcntl", {EACCES}},
        {"fdopendir", {ENOMEM}},
        {"flock", {EINTR, ENOLCK, EWOULDBLOCK}},
        {"fstat", {EIO, ENOMEM}},
        {"getrandom", {EAGAIN, EINTR, ENOSYS}},
        {"lstat", {EACCES, EIO, ENOMEM}},
        {"madvise", {EAGAIN, EINVAL, ENOMEM}},
        {"mkdir", {EACCES, EDQUOT, EINTR, EIO, ENOMEM, ENOSPC, EROFS}},
        {"mlock", {EAGAIN, ENOMEM, EPERM}},
        {"mmap", {EAGAIN, ENOMEM}},
        {"munmap", {ENOMEM}},
        {"new", {ENOMEM}},
        {"open", {EACCES, EINTR, EIO, EMFILE, ENFILE, ENOMEM}},
        {"openat", {EACCES, EDQUOT, EINTR, EIO, EMFILE, ENFILE, ENOMEM, ENOSPC, EROFS}},
        {"pidfd_send_signal", {EPERM}},
        {"pipe2", {EMFILE, ENFILE, ENOMEM}},
        {"poll", {EINTR, ENOMEM}},
        {"pread", {EINTR, EIO}},
        {"readdir", {EIO}},
        {"rmdir", {EACCES, EBUSY, EIO, EROFS}},
        {"sigtimedwait", {EAGAIN, EINTR}},
        {"stat", {EACCES, EIO, ENOMEM}},
        {"unlink", {EACCES, EBUSY, EIO, EROFS}},
        {"unlinkat", {EACCES, EBUSY, EIO, EROFS}},
        {"waitid", {EINTR}},
        {"write", {EINTR, EIO, EPIPE}},
    };
    return errors;
}

const std::set<std::string, std::less<>>& FittingErrors::unfailing() {
    static const std::set<std::string, std::less<>> names = {
        // Work on the memory of the process alone.
        "environ",
        "explicit_bzero",
        "getenv",
        "memchr",
        "memcmp",
        "memcpy",
        "memmove",
        "memset",
        "snprintf",
        "strcmp",
        "strlen",
        "sigaddset",
        "sigemptyset",
        "sigfillset",
        "sigismember",
        // Always succeed.
        "geteuid",
        "getpid",
        "pthread_self",
        "sched_yield",
        // Refuse nothing but values that are never passed: other clocks, descriptors, limits, ways to change a mask.
        "clock_gettime",
        "closedir",
        "pthread_sigmask",
        "sigpending",
        "sysconf",
        // Of the standard library's locks, conditions and sleeps, which do again what was interrupted.
        "nanosleep",
        "pthread_cond_clockwait",
        "pthread_mutex_lock",
        "pthread_mutex_unlock",
        // Only in the new process before it becomes the engine, and tested with executables that the system refuses.
        "syscall",
        // What these call of the system is counted by its own name.
        "uuid_generate_random",
        "uuid_parse_range",
        "uuid_unparse_upper",
    };
    return names;
}
