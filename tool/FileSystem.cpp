#include "FileSystem.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int result(int returned) { return returned == 0 ? 0 : errno; }

FileSystem::Kind kindOf(const struct stat& status)
{
    switch (status.st_mode & S_IFMT) {
    case S_IFREG:
        return FileSystem::Kind::File;
    case S_IFLNK:
        return FileSystem::Kind::Link;
    case S_IFDIR:
        return FileSystem::Kind::Folder;
    case S_IFCHR:
    case S_IFBLK:
        return FileSystem::Kind::Device;
    default:
        return FileSystem::Kind::Stream;
    }
}

int rename(const QString& from, const QString& to, unsigned flags)
{
    return result(::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                              QFile::encodeName(to).constData(), flags));
}

} // namespace

std::optional<FileSystem::Identity> FileSystem::identityOf(const QString& path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

std::optional<FileSystem::Identity> FileSystem::entryIdentityOf(const QString& path)
{
    struct stat status;
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

std::optional<FileSystem::Identity> FileSystem::identityOf(int descriptor)
{
    struct stat status;
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

bool FileSystem::isFile(int descriptor)
{
    struct stat status;
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool FileSystem::standsAt(const QString& path, int descriptor)
{
    const auto named = identityOf(path);
    const auto opened = identityOf(descriptor);
    return named && opened && *named == *opened;
}

FileSystem::Kind FileSystem::kindOf(const QString& path)
{
    struct stat status;
    const bool found = ::lstat(QFile::encodeName(path).constData(), &status) == 0;
    return found ? ::kindOf(status) : Kind::Nothing;
}

bool FileSystem::exists(const QString& path) { return kindOf(path) != Kind::Nothing; }

unsigned FileSystem::linkCountOf(const QString& path)
{
    struct stat status;
    const bool found = ::lstat(QFile::encodeName(path).constData(), &status) == 0;
    return found ? static_cast<unsigned>(status.st_nlink) : 0;
}

FileSystem::Kind FileSystem::targetKindOf(const QString& path)
{
    struct stat status;
    const bool found = ::stat(QFile::encodeName(path).constData(), &status) == 0;
    return found ? ::kindOf(status) : Kind::Nothing;
}

QString FileSystem::reason(int error) { return qt_error_string(error); }

int FileSystem::renameToFree(const QString& from, const QString& to)
{
    const int error = rename(from, to, RENAME_NOREPLACE);
    if (error != EINVAL && error != ENOSYS)
        return error;
    // A file system without that step has links, or else leaves a moment for another program.
    const int linking = link(from, to);
    if (linking == 0)
        return unlink(from);
    if (!isWithoutLinks(linking))
        return linking;
    return exists(to) ? EEXIST : renameOver(from, to);
}

int FileSystem::renameOver(const QString& from, const QString& to) { return rename(from, to, 0); }

int FileSystem::link(const QString& from, const QString& to)
{
    return result(::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()));
}

bool FileSystem::isWithoutLinks(int error)
{
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS;
}

int FileSystem::unlink(const QString& path)
{
    return result(::unlink(QFile::encodeName(path).constData()));
}

std::optional<mode_t> FileSystem::modeOf(const QString& path)
{
    constexpr mode_t permissions = 07777;
    struct stat status;
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return status.st_mode & permissions;
}

int FileSystem::setMode(int descriptor, mode_t mode) { return result(::fchmod(descriptor, mode)); }

int FileSystem::findPlaceOf(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const int descriptor = ::open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    ::close(descriptor);
    struct stat status;
    const int found = result(::lstat(QFile::encodeName(path).constData(), &status));
    return found == ENOENT ? 0 : found;
}

int FileSystem::sync(int descriptor) { return result(::fsync(descriptor)); }

int FileSystem::syncFolderOf(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    const int error = sync(descriptor);
    ::close(descriptor);
    // Some file systems keep names on the disk at all times, and have no such call.
    return error == EINVAL ? 0 : error;
}
