#include "StagedFile.h"

#include "tool/PartialFile.h"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Less what the process masks.
constexpr mode_t UsualMode = 0666;

} // namespace

StagedFile::StagedFile(const QString& path) : m_path(path), m_partial(PartialFile::pathFor(path)) {}

StagedFile::~StagedFile() { release(); }

bool StagedFile::release()
{
    if (m_descriptor < 0)
        return true;
    const bool isGone =
        !FileSystem::standsAt(m_partial, m_descriptor) || FileSystem::unlink(m_partial) == 0;
    m_file.close();
    // Only now may another run have the name.
    ::close(m_descriptor);
    m_descriptor = -1;
    return isGone;
}

bool StagedFile::open(FileError* error)
{
    // The next run must be able to lock it, so it gets a mode without that only in its place.
    const mode_t mode = FileSystem::modeOf(m_path).value_or(UsualMode) | S_IRUSR | S_IWUSR;
    const int number = PartialFile::create(m_path, mode, &m_descriptor);
    const bool isInTheWay = number != EWOULDBLOCK && FileSystem::exists(m_partial);
    if (!error->take(number, isInTheWay ? m_partial : m_path))
        return false;
    m_file.setFileName(m_path);
    if (m_file.open(m_descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return true;
    *error = FileError{m_path, m_file.errorString()};
    return false;
}

bool StagedFile::complete(FileError* error)
{
    return error->take(FileSystem::sync(m_descriptor), m_path);
}

bool StagedFile::place(bool replacing, FileError* error)
{
    int number = FileSystem::standsAt(m_partial, m_descriptor) ? 0 : ENOENT;
    // Not before there is something to take the place of what a killed run kept.
    if (number == 0)
        number = PartialFile::recover(m_path, true);
    if (number == 0)
        number = replacing && FileSystem::exists(m_path) ? replace() : placeWhereNothingIs();
    m_isPlaced = number == 0;
    return error->take(number, m_path);
}

/// The temporary name stays, where that is possible, as what tells the next run who did this.
int StagedFile::placeWhereNothingIs()
{
    const int number = FileSystem::link(m_partial, m_path);
    return FileSystem::isWithoutLinks(number) ? FileSystem::renameToFree(m_partial, m_path)
                                              : number;
}

int StagedFile::replace()
{
    if (FileSystem::kindOf(m_path) == FileSystem::Kind::Folder)
        return EISDIR;
    m_replaced = FileSystem::entryIdentityOf(m_path);
    const auto mode = FileSystem::modeOf(m_path);
    int number = mode ? FileSystem::setMode(m_descriptor, *mode) : 0;
    if (number == 0)
        number = replaceKept();
    if (number != 0)
        m_replaced.reset();
    return number;
}

int StagedFile::replaceKept()
{
    const QString backup = keptPath();
    int number = FileSystem::link(m_path, backup);
    if (FileSystem::isWithoutLinks(number)) {
        // There is a moment with nothing in the place; see PartialFile::recover().
        number = FileSystem::renameToFree(m_path, backup);
        if (number != 0)
            return number;
        number = placeWhereNothingIs();
        if (number != 0)
            FileSystem::renameToFree(backup, m_path);
        return number;
    }
    if (number != 0)
        return number;
    const QString spare = PartialFile::sparePathFor(m_path);
    number = FileSystem::link(m_partial, spare);
    if (number == 0) {
        number = FileSystem::renameOver(spare, m_path);
        if (number != 0)
            FileSystem::unlink(spare);
    }
    if (number != 0)
        FileSystem::unlink(backup);
    return number;
}

bool StagedFile::takeBack()
{
    if (!m_isPlaced)
        return true;
    // Another program may have put its own file there since.
    const bool own = FileSystem::standsAt(m_path, m_descriptor);
    int number = 0;
    if (m_replaced)
        number = own && keepsReplaced() ? FileSystem::renameOver(keptPath(), m_path) : EEXIST;
    else if (own)
        number = FileSystem::unlink(m_path);
    m_isPlaced = number != 0;
    return number == 0;
}

QString StagedFile::setAside()
{
    const QString kept = PartialFile::keptPathFor(m_path);
    return FileSystem::renameToFree(keptPath(), kept) == 0 ? kept : keptPath();
}

bool StagedFile::settle()
{
    return !m_replaced || !keepsReplaced() || FileSystem::unlink(keptPath()) == 0;
}

QString StagedFile::keptPath() const { return PartialFile::backupPathFor(m_path); }

bool StagedFile::keepsReplaced() const
{
    return m_replaced == FileSystem::entryIdentityOf(keptPath());
}
