#include "PartialFile.h"

#include "tool/FileSystem.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

const QString PartialEnding = QStringLiteral(".pelk-fcf");
const QString BackupEnding = QStringLiteral("-old");
constexpr mode_t PermissionsBeforeUmask = 0666;
/// How often another program may take the temporary name away between two of our steps.
constexpr int Attempts = 16;

bool fits(const QString& name) { return QFile::encodeName(name).size() <= NAME_MAX; }

QString partialName(const QString& name)
{
    const QString partial = QLatin1Char('.') + name + PartialEnding;
    if (fits(partial + BackupEnding) || !fits(name))
        return partial;
    const QByteArray digest =
        QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Sha256);
    return QLatin1Char('.') + QString::fromLatin1(digest.toHex()) + PartialEnding;
}

int openNew(const QString& path)
{
    return ::open(QFile::encodeName(path).constData(),
                  O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, PermissionsBeforeUmask);
}

bool lock(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

} // namespace

QString PartialFile::pathFor(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    return path.chopped(name.size()) + partialName(name);
}

QString PartialFile::backupPathFor(const QString& path) { return pathFor(path) + BackupEnding; }

int PartialFile::create(const QString& path, int* descriptor)
{
    const QString partial = pathFor(path);
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const int created = openNew(partial);
        if (created >= 0 && lock(created) && FileSystem::standsAt(partial, created)) {
            *descriptor = created;
            return 0;
        }
        if (created >= 0) {
            ::close(created);
            continue;
        }
        if (errno != EEXIST)
            return errno;
        if (const int clearing = Found(path).clear())
            return clearing;
    }
    return EBUSY;
}

int PartialFile::clear(const QString& path)
{
    const int clearing = Found(path).clear();
    return clearing != 0 ? clearing : clearBackup(path);
}

int PartialFile::clearBackup(const QString& path)
{
    const QString backup = backupPathFor(path);
    if (FileSystem::kindOf(backup) == FileSystem::Kind::Nothing)
        return 0;
    const int number = FileSystem::renameToFree(backup, path);
    return number == EEXIST ? FileSystem::unlink(backup) : number;
}

PartialFile::Found::Found(const QString& path) : m_partial(pathFor(path))
{
    m_descriptor = ::open(QFile::encodeName(m_partial).constData(),
                          O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (m_descriptor >= 0) {
        if (!lock(m_descriptor))
            m_error = errno;
        else if (!FileSystem::standsAt(m_partial, m_descriptor))
            m_error = ENOENT;
        return;
    }
    m_error = errno;
    // No run completes a link: it is one that was replaced.
    if (m_error == ELOOP && FileSystem::kindOf(m_partial) == FileSystem::Kind::Link)
        m_error = 0;
}

PartialFile::Found::~Found()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

int PartialFile::Found::clear() const
{
    if (m_error != 0)
        return m_error == ENOENT ? 0 : m_error;
    return FileSystem::unlink(m_partial);
}
