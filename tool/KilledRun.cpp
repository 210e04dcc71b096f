#include "KilledRun.h"

#include "fcf/FcfLayout.h"
#include "tool/Digest.h"
#include "tool/FileSystem.h"
#include "tool/PartialFile.h"

#include <QFile>

#include <cerrno>

namespace {

const QString ImageEnding = QStringLiteral(".fcf");
const QString CompanionEnding = QStringLiteral(".txt");

} // namespace

KilledRun::KilledRun(const QString& image, const QString& companion)
    : m_image(image), m_companion(companion)
{
}

KilledRun KilledRun::around(const QString& path)
{
    for (const QString& ending : {CompanionEnding, ImageEnding, Digest::pathFor(ImageEnding)}) {
        if (path.endsWith(ending)) {
            const QString stem = path.chopped(ending.size());
            return KilledRun(stem + ImageEnding, stem + CompanionEnding);
        }
    }
    return KilledRun(QString(), QString());
}

bool KilledRun::placedWhereNothingWas(const QString& path) const
{
    return PartialFile::Found(m_image).error() == 0 && !PartialFile::wasPlaced(m_image) &&
           PartialFile::Found(path).error() == 0 && PartialFile::isInPlace(path) &&
           !FileSystem::exists(PartialFile::backupPathFor(path)) &&
           isUntouched(path).value_or(false);
}

bool KilledRun::undo(FileError* error) const
{
    if (m_image.isEmpty())
        return true;
    const PartialFile::Found image(m_image);
    if (image.error() == ENOENT)
        return true;
    if (!error->take(image.error(),
                     image.error() == EWOULDBLOCK ? m_image : PartialFile::pathFor(m_image)))
        return false;
    for (const QString& path : {m_companion, Digest::pathFor(m_image)}) {
        if (!undo(path, error))
            return false;
    }
    // Last, as it is what tells all of this.
    return error->take(PartialFile::recover(m_image, true), m_image) &&
           error->take(image.clear(), m_image);
}

bool KilledRun::undo(const QString& path, FileError* error) const
{
    const PartialFile::Found other(path);
    // No such name was ever used.
    if (other.error() == ENAMETOOLONG)
        return true;
    if (other.error() != 0 && other.error() != ENOENT)
        return error->take(other.error(), path);
    const bool followed = PartialFile::wasPlaced(m_image);
    const std::optional<bool> untouched = isUntouched(path);
    if (!untouched)
        return error->take(EIO, path);
    return error->take(PartialFile::recover(path, followed || !*untouched), path) &&
           error->take(other.clear(), path);
}

/// Whether the file holds what belongs to the image that did not follow: whoever writes into it is
/// not told from the run by the file alone. Nothing if that cannot be read.
std::optional<bool> KilledRun::isUntouched(const QString& path) const
{
    if (FileSystem::kindOf(path) != FileSystem::Kind::File)
        return false;
    QFile file(path);
    QFile image(PartialFile::pathFor(m_image));
    if (!file.open(QIODevice::ReadOnly) || !image.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.read(Digest::MaximumBytes);
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    if (path == m_companion) {
        const QByteArray page = image.read(bytes.size());
        if (image.error() != QFileDevice::NoError)
            return std::nullopt;
        return bytes.size() >= FcfLayout::PageBytes && page == bytes;
    }
    const auto digest = Digest::of(&image);
    if (!digest)
        return std::nullopt;
    return bytes == Digest::line(*digest, m_image);
}
