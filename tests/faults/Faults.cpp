// SPDX-License-Identifier: GPL-3.0-or-later
// Stands between the tested code and the system's library: a program's own functions go before those of libraries.
#include "tests/faults/Faults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace ardeno::faults {

namespace {

Plan plan;
std::atomic<int> count = 0;

bool strikes(const char *path)
{
    if (plan.folder.isEmpty() || !path || std::strncmp(path, plan.folder.constData(), size_t(plan.folder.size())) != 0)
        return false;
    const int call = ++count;
    if (call != plan.call && (call < plan.call || plan.kind != Plan::Kind::LastingError))
        return false;
    if (plan.kind == Plan::Kind::Kill)
        ::kill(::getpid(), SIGKILL);
    errno = plan.error;
    return true;
}

bool strikes(int descriptor)
{
    if (plan.folder.isEmpty())
        return false;
    char name[32];
    char path[PATH_MAX] = {};
    std::snprintf(name, sizeof name, "/proc/self/fd/%d", descriptor);
    return ::syscall(SYS_readlinkat, AT_FDCWD, name, path, sizeof path - 1) > 0 && strikes(path);
}

template <typename Place, typename... Arguments>
auto call(Place place, long number, Arguments... arguments)
{
    return strikes(place) ? -1L : ::syscall(number, arguments...);
}

} // namespace

void begin(const Plan &next)
{
    count = 0;
    plan = next;
}

int calls()
{
    return count;
}

} // namespace ardeno::faults

using ardeno::faults::call;
using ardeno::faults::strikes;

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    va_end(list);
    return int(call(path, SYS_openat, AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    va_end(list);
    if (folder == AT_FDCWD || path[0] == '/')
        return int(call(path, SYS_openat, folder, path, flags, mode));
    return int(call(folder, SYS_openat, folder, path, flags, mode));
}

DIR *opendir(const char *path)
{
    static const auto open = reinterpret_cast<DIR *(*)(const char *)>(::dlsym(RTLD_NEXT, "opendir"));
    return strikes(path) ? nullptr : open(path);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    if (folder == AT_FDCWD || path[0] == '/')
        return int(call(path, SYS_unlinkat, folder, path, flags));
    return int(call(folder, SYS_unlinkat, folder, path, flags));
}

int stat(const char *path, struct stat *status) noexcept
{
    return int(call(path, SYS_newfstatat, AT_FDCWD, path, status, 0));
}

int lstat(const char *path, struct stat *status) noexcept
{
    return int(call(path, SYS_newfstatat, AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW));
}

int fstat(int file, struct stat *status) noexcept
{
    return int(call(file, SYS_fstat, file, status));
}

ssize_t read(int file, void *bytes, size_t size)
{
    return call(file, SYS_read, file, bytes, size);
}

ssize_t pread(int file, void *bytes, size_t size, off_t position)
{
    return call(file, SYS_pread64, file, bytes, size, position);
}

ssize_t write(int file, const void *bytes, size_t size)
{
    return call(file, SYS_write, file, bytes, size);
}

ssize_t writev(int file, const iovec *vectors, int number)
{
    return call(file, SYS_writev, file, vectors, number);
}

int ftruncate(int file, off_t size) noexcept
{
    return int(call(file, SYS_ftruncate, file, size));
}

// Nothing here cuts the power, and disks are slow.
int fsync(int file)
{
    return strikes(file) ? -1 : 0;
}

int fdatasync(int file)
{
    return strikes(file) ? -1 : 0;
}

int rename(const char *from, const char *to) noexcept
{
    return int(call(to, SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int link(const char *from, const char *to) noexcept
{
    return int(call(to, SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int unlink(const char *path) noexcept
{
    return int(call(path, SYS_unlinkat, AT_FDCWD, path, 0));
}

int rmdir(const char *path) noexcept
{
    return int(call(path, SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR));
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return int(call(path, SYS_mkdirat, AT_FDCWD, path, mode));
}
}
