#include "KilledRun.h"

#include "tool/Digest.h"
#include "tool/FileSystem.h"
#include "tool/PartialFile.h"

#include <QFile>

#include <cerrno>

KilledRun::KilledRun(const QString& image) : m_image(image), m_partial(PartialFile::pathFor(image))
{
}

bool KilledRun::placedWhereNothingWas(const QString& path) const
{
    const auto stands = [](const QString& name) {
        return FileSystem::kindOf(name) != FileSystem::Kind::Nothing;
    };
    return PartialFile::Found(m_image).error() == 0 && placed(path) &&
           !stands(PartialFile::backupPathFor(path)) && !stands(PartialFile::pathFor(path));
}

bool KilledRun::undo(const QStringList& others, FileError* error) const
{
    const PartialFile::Found image(m_image);
    if (image.error() == ENOENT)
        return true;
    if (!error->take(image.error(), m_image))
        return false;
    for (const QString& path : others) {
        if (placed(path) && !error->take(takeBack(path), path))
            return false;
    }
    // Last, as it is what tells all of this.
    return error->take(image.clear(), m_image);
}

int KilledRun::takeBack(const QString& path) const
{
    const QString backup = PartialFile::backupPathFor(path);
    if (FileSystem::kindOf(backup) != FileSystem::Kind::Nothing)
        return FileSystem::renameOver(backup, path);
    const PartialFile::Found replaced(path);
    if (replaced.error() == ENOENT)
        return FileSystem::unlink(path);
    if (replaced.error() != 0)
        return replaced.error();
    const int exchanging = FileSystem::exchange(PartialFile::pathFor(path), path);
    // A file system that cannot did not either.
    if (exchanging == EINVAL || exchanging == ENOSYS)
        return 0;
    return exchanging != 0 ? exchanging : replaced.clear();
}

/// With just the bytes that belong to the image that did not follow, and not to one that is there.
bool KilledRun::placed(const QString& path) const
{
    return belongs(path, m_partial) && !belongs(path, m_image);
}

bool KilledRun::belongs(const QString& path, const QString& image) const
{
    using FileSystem::Kind;
    if (FileSystem::kindOf(path) != Kind::File || FileSystem::kindOf(image) != Kind::File)
        return false;
    QFile other(path);
    QFile whole(image);
    if (!other.open(QIODevice::ReadOnly) || other.size() > Digest::MaximumBytes ||
        !whole.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = other.readAll();
    if (path != Digest::pathFor(m_image))
        return !bytes.isEmpty() && whole.read(bytes.size()) == bytes;
    const auto digest = Digest::of(&whole);
    return digest && bytes == Digest::line(*digest, m_image);
}
