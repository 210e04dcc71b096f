#include "StagedFile.h"

#include "tool/PartialFile.h"

#include <cerrno>

#include <unistd.h>

StagedFile::StagedFile(const QString& path) : m_path(path), m_partial(PartialFile::pathFor(path)) {}

StagedFile::~StagedFile()
{
    if (m_state == Temporary)
        FileSystem::unlink(m_partial);
    m_file.close();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool StagedFile::open(FileError* error)
{
    if (!error->take(PartialFile::create(m_path, &m_descriptor), m_path))
        return false;
    m_state = Temporary;
    m_file.setFileName(m_path);
    if (!m_file.open(m_descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        *error = FileError{m_path, m_file.errorString()};
        return false;
    }
    int number = PartialFile::clearBackup(m_path);
    if (number == 0 && FileSystem::kindOf(m_path) == FileSystem::Kind::File)
        number = FileSystem::copyMode(m_path, m_descriptor);
    return error->take(number, m_path);
}

bool StagedFile::complete(FileError* error)
{
    return error->take(FileSystem::sync(m_descriptor), m_path);
}

bool StagedFile::place(bool replacing, FileError* error)
{
    int number = EEXIST;
    if (replacing && FileSystem::kindOf(m_path) != FileSystem::Kind::Nothing) {
        number = replace();
    } else {
        number = FileSystem::renameToFree(m_partial, m_path);
        if (number == 0)
            m_state = Placed;
    }
    return error->take(number, m_path);
}

int StagedFile::replace()
{
    if (FileSystem::kindOf(m_path) == FileSystem::Kind::Folder)
        return EISDIR;
    m_replaced = FileSystem::entryIdentityOf(m_path);
    const int copying = FileSystem::copyMode(m_path, m_descriptor);
    if (copying != 0)
        return copying;
    const int number = FileSystem::exchange(m_partial, m_path);
    if (number == 0)
        m_state = Exchanged;
    return number == EINVAL || number == ENOSYS ? replaceWithBackup() : number;
}

int StagedFile::replaceWithBackup()
{
    const QString backup = PartialFile::backupPathFor(m_path);
    int number = FileSystem::link(m_path, backup);
    // Without links there is a moment with nothing in the place; see PartialFile::clearBackup().
    const bool moved = number == EPERM || number == EOPNOTSUPP || number == ENOSYS;
    if (moved)
        number = FileSystem::renameToFree(m_path, backup);
    if (number != 0)
        return number;
    number = FileSystem::renameOver(m_partial, m_path);
    if (number == 0)
        m_state = BackedUp;
    else if (moved)
        FileSystem::renameToFree(backup, m_path);
    else
        FileSystem::unlink(backup);
    return number;
}

bool StagedFile::takeBack()
{
    // Another program may have put its own file there since.
    const bool own = FileSystem::standsAt(m_path, m_descriptor);
    if (m_state == Exchanged) {
        if (!own || !keepsReplaced() || FileSystem::exchange(m_partial, m_path) != 0)
            return false;
        m_state = Temporary;
    } else if (m_state == BackedUp) {
        if (!own || !keepsReplaced() || FileSystem::renameOver(keptPath(), m_path) != 0)
            return false;
        m_state = Unused;
    } else if (m_state == Placed) {
        if (own && FileSystem::unlink(m_path) != 0)
            return false;
        m_state = Unused;
    }
    return true;
}

bool StagedFile::settle()
{
    const bool kept = (m_state == Exchanged || m_state == BackedUp) && keepsReplaced();
    const bool gone = !kept || FileSystem::unlink(keptPath()) == 0;
    if (gone)
        m_state = Placed;
    return gone;
}

QString StagedFile::keptPath() const
{
    return m_state == BackedUp ? PartialFile::backupPathFor(m_path) : m_partial;
}

/// What was replaced is not locked: a run that started meanwhile may have cleared it, and have put
/// its own file under that name.
bool StagedFile::keepsReplaced() const
{
    return m_replaced && m_replaced == FileSystem::entryIdentityOf(keptPath());
}
