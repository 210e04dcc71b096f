#include "tool/files/FileSystem.h"

#include "tool/base/Text.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Stat = struct stat;

} // namespace

std::optional<FileSystem::Identity> FileSystem::identityOf(const QString& path)
{
    Stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

std::optional<FileSystem::Identity> FileSystem::identityOf(int descriptor)
{
    Stat status;
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    return Identity{status.st_dev, status.st_ino};
}

std::optional<FileSystem::Version> FileSystem::versionOf(int descriptor)
{
    Stat status;
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    return Version{status.st_size,
                   {status.st_mtim.tv_sec, status.st_mtim.tv_nsec},
                   {status.st_ctim.tv_sec, status.st_ctim.tv_nsec}};
}

bool FileSystem::isFile(int descriptor)
{
    Stat status;
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool FileSystem::isDevice(const QString& path)
{
    Stat status;
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 &&
           (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode));
}

bool FileSystem::exists(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QByteArray FileSystem::folderOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).path());
}

QByteArray FileSystem::nameOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).fileName());
}

QString FileSystem::reason() { return qt_error_string(errno); }

Status FileSystem::checkPlaceOf(const QString& path)
{
    const int descriptor = ::open(folderOf(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return notWritten(path, reason());
    ::close(descriptor);
    Stat status;
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0 && errno != ENOENT)
        return notWritten(path, reason());
    return {};
}

tl::unexpected<Finding> FileSystem::notWritten(const QString& path, const QString& reason)
{
    return failure(ExitCode::CannotAccess, path, "--output",
                   QStringLiteral("cannot be written: %1").arg(reason));
}

tl::unexpected<Finding> FileSystem::alreadyExists(const QString& path)
{
    return failure(ExitCode::OutputExists, path, "--output", "exists already; --force replaces it");
}
