#include "FaultyFileSystem.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstddef>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

Faults faults;

namespace {

bool isTurn(int* countdown) { return *countdown >= 0 && (*countdown)-- == 0; }

void change()
{
    if (isTurn(&faults.signalledChange))
        ::raise(faults.signal);
}

/// Whether a read or write of a file may fail.
bool hasFault()
{
    const Faults none;
    return faults.room != none.room || faults.failingRead != none.failingRead ||
           faults.signalledChange != none.signalledChange;
}

int failed(int error)
{
    errno = error;
    return -1;
}

bool isFolder(int descriptor)
{
    struct stat status;
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

/// Only files among the temporary ones are on the disk that fails.
bool isOnDisk(int descriptor)
{
    struct stat status;
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    char path[PATH_MAX] = "";
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(descriptor);
    return ::readlink(link.constData(), path, sizeof path - 1) > 0 &&
           QByteArray(path).startsWith(QFile::encodeName(QDir::tempPath()) + '/');
}

/// Whether naming a file \p name fails.
bool failsNaming(const char* name)
{
    change();
    if (faults.beforeNaming)
        faults.beforeNaming(name);
    return faults.failsTo && faults.failsTo(name);
}

} // namespace

// The program's functions of these names are called in place of the library's, by Qt as well.
#pragma GCC visibility push(default)

extern "C" int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const bool isCreating = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    const int mode = isCreating ? va_arg(arguments, int) : 0;
    va_end(arguments);
    if ((flags & O_TMPFILE) == O_TMPFILE && faults.hasNoUnnamedFiles)
        return failed(EOPNOTSUPP);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept
{
    if (flags != 0 && faults.hasNoFlaggedRename)
        return failed(EINVAL);
    if (failsNaming(to))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    if (failsNaming(to))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to,
                      int flags) noexcept
{
    if (failsNaming(to))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

// There is a structure of this name as well.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"

extern "C" int flock(int descriptor, int operation) noexcept
{
    if (faults.beforeLocking)
        faults.beforeLocking();
    if (faults.hasNoLock)
        return failed(ENOLCK);
    return static_cast<int>(::syscall(SYS_flock, descriptor, operation));
}

#pragma GCC diagnostic pop

extern "C" ssize_t write(int descriptor, const void* data, std::size_t bytes)
{
    if (isOnDisk(descriptor)) {
        change();
        if (faults.room == 0 && bytes > 0)
            return failed(ENOSPC);
        bytes = static_cast<std::size_t>(qMin(static_cast<qint64>(bytes), faults.room));
        faults.room -= static_cast<qint64>(bytes);
    }
    return ::syscall(SYS_write, descriptor, data, bytes);
}

extern "C" ssize_t read(int descriptor, void* data, std::size_t bytes)
{
    if (isOnDisk(descriptor) && isTurn(&faults.failingRead))
        return failed(EIO);
    return ::syscall(SYS_read, descriptor, data, bytes);
}

extern "C" ssize_t pread(int descriptor, void* data, std::size_t bytes, off_t offset)
{
    if (isOnDisk(descriptor) && isTurn(&faults.failingRead))
        return failed(EIO);
    const ssize_t count = ::syscall(SYS_pread64, descriptor, data, bytes, offset);
    faults.bytesRead += std::max<ssize_t>(count, 0);
    return count;
}

// A disk with a fault refuses, so that the reads and writes in its place meet the fault.
extern "C" ssize_t copy_file_range(int from, off_t* fromOffset, int to, off_t* toOffset,
                                   std::size_t bytes, unsigned flags)
{
    if ((isOnDisk(from) || isOnDisk(to)) && hasFault())
        return failed(ENOSYS);
    return ::syscall(SYS_copy_file_range, from, fromOffset, to, toOffset, bytes, flags);
}

extern "C" int fsync(int descriptor)
{
    // No power fails during a test.
    return (isFolder(descriptor) ? faults.failsFolderSync : faults.failsSync) ? failed(EIO) : 0;
}

#pragma GCC visibility pop
