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
const QString SpareEnding = QStringLiteral("-new");
const QString KeptEnding = QStringLiteral("-kept");
/// How often another program may take the temporary name away between two of our steps.
constexpr int Attempts = 16;

bool fits(const QString& name) { return QFile::encodeName(name).size() <= NAME_MAX; }

QString partialName(const QString& name)
{
    QString partial = QLatin1Char('.') + name + PartialEnding;
    if (fits(partial + KeptEnding))
        return partial;
    const QByteArray digest =
        QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Sha256);
    return QLatin1Char('.') + QString::fromLatin1(digest.toHex()) + PartialEnding;
}

int openNew(const QString& path, mode_t mode)
{
    return ::open(QFile::encodeName(path).constData(),
                  O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
}

bool lock(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

} // namespace

QString PartialFile::pathFor(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    return path.chopped(name.size()) + partialName(name);
}

QString PartialFile::backupPathFor(const QString& path) { return pathFor(path) + BackupEnding; }

QString PartialFile::keptPathFor(const QString& path) { return pathFor(path) + KeptEnding; }

QString PartialFile::sparePathFor(const QString& path) { return pathFor(path) + SpareEnding; }

int PartialFile::create(const QString& path, mode_t mode, int* descriptor)
{
    const QString partial = pathFor(path);
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        const int created = openNew(partial, mode);
        if (created < 0) {
            if (errno != EEXIST)
                return errno;
            if (const int clearing = Found(path).clear())
                return clearing;
            continue;
        }
        const int locking = lock(created) ? 0 : errno;
        if (locking == 0 && FileSystem::standsAt(partial, created)) {
            *descriptor = created;
            return 0;
        }
        // A run that locked it first clears it.
        if (locking != 0 && locking != EWOULDBLOCK)
            FileSystem::unlink(partial);
        ::close(created);
        if (locking != 0 && locking != EWOULDBLOCK)
            return locking;
    }
    return EWOULDBLOCK;
}

QStringList PartialFile::namesFor(const QString& path)
{
    return {pathFor(path), backupPathFor(path), sparePathFor(path)};
}

bool PartialFile::isInPlace(const QString& path)
{
    const auto identity = FileSystem::entryIdentityOf(path);
    return identity && identity == FileSystem::entryIdentityOf(pathFor(path));
}

bool PartialFile::wasPlaced(const QString& path)
{
    if (FileSystem::exists(path))
        return isInPlace(path);
    const QString partial = pathFor(path);
    const auto identity = FileSystem::entryIdentityOf(partial);
    const bool isSpare = identity && identity == FileSystem::entryIdentityOf(sparePathFor(path));
    return FileSystem::linkCountOf(partial) > (isSpare ? 2u : 1u);
}

int PartialFile::recover(const QString& path, bool keepPlaced)
{
    const QString backup = backupPathFor(path);
    int number = 0;
    if (FileSystem::kindOf(backup) == FileSystem::Kind::Folder)
        return EISDIR;
    if (!FileSystem::exists(backup)) {
        if (!keepPlaced && isInPlace(path))
            number = FileSystem::unlink(path);
    } else if (!FileSystem::exists(path)) {
        number = FileSystem::renameToFree(backup, path);
    } else {
        // Without links the temporary name goes when the file is put in place.
        const bool isPlaced = isInPlace(path) || !FileSystem::exists(pathFor(path));
        number = isPlaced && !keepPlaced ? FileSystem::renameOver(backup, path)
                                         : FileSystem::unlink(backup);
    }
    const QString spare = sparePathFor(path);
    return number == 0 && FileSystem::exists(spare) ? FileSystem::unlink(spare) : number;
}

int PartialFile::clear(const QString& path)
{
    const Found found(path);
    if (found.error() != 0 && found.error() != ENOENT)
        return found.error();
    const int number = recover(path, true);
    return number != 0 ? number : found.clear();
}

PartialFile::Found::Found(const QString& path) : m_partial(pathFor(path))
{
    // Over a network only what is open for writing can be locked.
    for (const int access : {O_RDWR, O_RDONLY, O_WRONLY}) {
        m_descriptor = ::open(QFile::encodeName(m_partial).constData(),
                              access | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (m_descriptor >= 0 || errno != EACCES)
            break;
    }
    if (m_descriptor >= 0) {
        if (!lock(m_descriptor))
            m_error = errno;
        else if (!FileSystem::standsAt(m_partial, m_descriptor))
            m_error = ENOENT;
        return;
    }
    m_error = errno;
    // No run completes a link, so it is in nobody's use.
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
