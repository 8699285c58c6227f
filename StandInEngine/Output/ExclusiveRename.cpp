#include "Output/ExclusiveRename.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

int ExclusiveRename::rename(int parent, const char* from, const char* to) {
    if (::renameat2(parent, from, parent, to, RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) {
        return errno;
    }
    return renameOntoReservedName(parent, from, to);
}

int ExclusiveRename::renameOntoReservedName(int parent, const char* from, const char* to) {
    if (::mkdirat(parent, to, 0777) != 0) {
        return errno;
    }
    if (::renameat(parent, from, parent, to) == 0) {
        return 0;
    }
    const int error = errno;
    if (error == ENOTEMPTY || error == ENOTDIR || error == EEXIST) {
        return EEXIST;
    }
    ::unlinkat(parent, to, AT_REMOVEDIR);
    return error;
}
