#include "tool/files/FileSystem.h"

#include "tool/base/Text.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString OutputOption = QStringLiteral("--output");

using Stat = struct stat;

FileSystem::Kind kindOf(const Stat& status, bool found)
{
    using Kind = FileSystem::Kind;
    if (!found)
        return Kind::Nothing;
    switch (status.st_mode & S_IFMT) {
    case S_IFREG:
        return Kind::File;
    case S_IFLNK:
        return Kind::Link;
    case S_IFDIR:
        return Kind::Folder;
    case S_IFCHR:
    case S_IFBLK:
        return Kind::Device;
    default:
        return Kind::Stream;
    }
}

std::optional<FileSystem::Identity> identityOf(const Stat& status, bool found)
{
    return found ? std::optional<FileSystem::Identity>({status.st_dev, status.st_ino})
                 : std::nullopt;
}

} // namespace

std::optional<FileSystem::Identity> FileSystem::identityOf(const QString& path)
{
    Stat status;
    const int failed = ::stat(QFile::encodeName(path).constData(), &status);
    return ::identityOf(status, failed == 0);
}

std::optional<FileSystem::Identity> FileSystem::identityOf(int descriptor)
{
    Stat status;
    const int failed = ::fstat(descriptor, &status);
    return ::identityOf(status, failed == 0);
}

bool FileSystem::Version::operator==(const Version& other) const
{
    const auto isSame = [](const timespec& one, const timespec& two) {
        return one.tv_sec == two.tv_sec && one.tv_nsec == two.tv_nsec;
    };
    return identity == other.identity && bytes == other.bytes && isSame(modified, other.modified) &&
           isSame(changed, other.changed);
}

std::optional<FileSystem::Version> FileSystem::versionOf(int descriptor)
{
    Stat status;
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    return Version{{status.st_dev, status.st_ino}, status.st_size, status.st_mtim, status.st_ctim};
}

bool FileSystem::isFile(int descriptor)
{
    struct stat status;
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

FileSystem::Kind FileSystem::kindOf(const QString& path)
{
    Stat status;
    const int failed = ::lstat(QFile::encodeName(path).constData(), &status);
    return ::kindOf(status, failed == 0);
}

FileSystem::Kind FileSystem::targetKindOf(const QString& path)
{
    Stat status;
    const int failed = ::stat(QFile::encodeName(path).constData(), &status);
    return ::kindOf(status, failed == 0);
}

bool FileSystem::exists(const QString& path) { return kindOf(path) != Kind::Nothing; }

QByteArray FileSystem::folderOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).path());
}

QByteArray FileSystem::nameOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).fileName());
}

QString FileSystem::reason(int error) { return qt_error_string(error); }

Status FileSystem::checkPlaceOf(const QString& path)
{
    const int descriptor = ::open(folderOf(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return notWritten(path, reason(errno));
    ::close(descriptor);
    struct stat status;
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0 && errno != ENOENT)
        return notWritten(path, reason(errno));
    return {};
}

tl::unexpected<Finding> FileSystem::notWritten(const QString& path, const QString& reason)
{
    return failure(ExitCode::CannotAccess, path, OutputOption,
                   QStringLiteral("cannot be written: %1").arg(reason));
}

tl::unexpected<Finding> FileSystem::alreadyExists(const QString& path)
{
    return failure(ExitCode::OutputExists, path, OutputOption,
                   QStringLiteral("exists already; --force replaces it"));
}
