#include "FaultyFileSystem.h"

#include <cerrno>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

Faults faults;

namespace {

void change()
{
    if (faults.killedBeforeChange >= 0 && faults.killedBeforeChange-- == 0)
        ::raise(SIGKILL);
}

int failed(int error)
{
    errno = error;
    return -1;
}

} // namespace

// The library's functions of these names give way to those of the program, for Qt as well.
#pragma GCC visibility push(default)

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept
{
    change();
    if (flags != 0 && faults.hasNoFlaggedRename)
        return failed(EINVAL);
    if (faults.failsTo && faults.failsTo(to))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

extern "C" int link(const char* from, const char* to) noexcept
{
    change();
    if (faults.hasNoLink)
        return failed(EPERM);
    if (faults.failsTo && faults.failsTo(to))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}

extern "C" int unlink(const char* path) noexcept
{
    change();
    if (faults.failsUnlink && faults.failsUnlink(path))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

// There is a structure of this name as well.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"

extern "C" int flock(int descriptor, int operation) noexcept
{
    if (faults.hasNoLock)
        return failed(ENOLCK);
    return static_cast<int>(::syscall(SYS_flock, descriptor, operation));
}

#pragma GCC diagnostic pop

extern "C" ssize_t write(int descriptor, const void* data, std::size_t bytes)
{
    struct stat status;
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        change();
    return ::syscall(SYS_write, descriptor, data, bytes);
}

extern "C" int fsync(int descriptor)
{
    struct stat status;
    if (faults.syncsNoFolder && ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode))
        return failed(EIO);
    // No power fails during a test.
    return 0;
}

#pragma GCC visibility pop
