#include "KilledRun.h"

#include "tool/FileSystem.h"
#include "tool/PartialFile.h"

#include <cerrno>

bool KilledRun::placedWhereNothingWas(const QString& path) const
{
    return PartialFile::Found(m_image).error() == 0 && !PartialFile::isInPlace(m_image) &&
           PartialFile::Found(path).error() == 0 && PartialFile::isInPlace(path) &&
           !FileSystem::exists(PartialFile::backupPathFor(path));
}

bool KilledRun::undo(const QStringList& others, FileError* error) const
{
    const PartialFile::Found image(m_image);
    if (image.error() == ENOENT)
        return true;
    if (!error->take(image.error(), m_image))
        return false;
    const bool followed = PartialFile::isInPlace(m_image);
    for (const QString& path : others) {
        const PartialFile::Found other(path);
        // Then it is another run's by now, of another command.
        if (other.error() == EWOULDBLOCK)
            continue;
        if (!error->take(PartialFile::recover(path, followed), path) ||
            !error->take(other.clear(), path))
            return false;
    }
    // Last, as it is what tells all of this.
    return error->take(PartialFile::recover(m_image, true), m_image) &&
           error->take(image.clear(), m_image);
}
