#include "KilledRun.h"

#include "tool/Digest.h"
#include "tool/FileSystem.h"
#include "tool/PartialFile.h"

#include <QFile>

#include <cerrno>

bool KilledRun::placedWhereNothingWas(const QString& path) const
{
    return PartialFile::Found(m_image).error() == 0 && !PartialFile::wasPlaced(m_image) &&
           PartialFile::Found(path).error() == 0 && PartialFile::isInPlace(path) &&
           !FileSystem::exists(PartialFile::backupPathFor(path)) && isUntouched(path);
}

bool KilledRun::undo(const QStringList& others, FileError* error) const
{
    const PartialFile::Found image(m_image);
    if (image.error() == ENOENT)
        return true;
    if (!error->take(image.error(),
                     image.error() == EWOULDBLOCK ? m_image : PartialFile::pathFor(m_image)))
        return false;
    const bool followed = PartialFile::wasPlaced(m_image);
    for (const QString& path : others) {
        const PartialFile::Found other(path);
        // Then it is another run's, of another command or another user.
        if (other.error() != 0 && other.error() != ENOENT)
            continue;
        if (!error->take(PartialFile::recover(path, followed || !isUntouched(path)), path) ||
            !error->take(other.clear(), path))
            return false;
    }
    // Last, as it is what tells all of this.
    return error->take(PartialFile::recover(m_image, true), m_image) &&
           error->take(image.clear(), m_image);
}

/// Whether the file holds what belongs to the image that did not follow: whoever writes into it is
/// not told from the run by the file alone.
bool KilledRun::isUntouched(const QString& path) const
{
    QFile file(path);
    QFile image(PartialFile::pathFor(m_image));
    if (FileSystem::kindOf(path) != FileSystem::Kind::File || !file.open(QIODevice::ReadOnly) ||
        file.size() > Digest::MaximumBytes || !image.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    if (path != Digest::pathFor(m_image))
        return image.read(bytes.size()) == bytes;
    const auto digest = Digest::of(&image);
    return digest && bytes == Digest::line(*digest, m_image);
}
