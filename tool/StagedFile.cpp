#include "StagedFile.h"

#include "tool/FileSystem.h"
#include "tool/Findings.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr mode_t PermissionsBeforeUmask = 0666;
/// How often another program may take the temporary name away between two of our steps.
constexpr int Attempts = 16;

int openNew(const QString& path)
{
    return ::open(QFile::encodeName(path).constData(),
                  O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, PermissionsBeforeUmask);
}

bool lock(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

bool stillStandsAt(const QString& path, int descriptor)
{
    const auto named = FileSystem::identityOf(path);
    const auto opened = FileSystem::identityOf(descriptor);
    return named && opened && *named == *opened;
}

/// Removes the file at \p partial unless it is locked. Returns 0 or an errno.
int clearUnlessLocked(const QString& partial)
{
    const int descriptor = ::open(QFile::encodeName(partial).constData(),
                                  O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return errno == ENOENT ? 0 : errno;
    int error = 0;
    if (!lock(descriptor))
        error = errno;
    else if (stillStandsAt(partial, descriptor))
        error = FileSystem::unlink(partial);
    ::close(descriptor);
    return error;
}

} // namespace

StagedFile::StagedFile(const QString& path) : m_path(path), m_partial(partialPath(path)) {}

StagedFile::~StagedFile()
{
    if (m_state == Temporary)
        FileSystem::unlink(m_partial);
    m_file.close();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

QString StagedFile::partialPath(const QString& path)
{
    const int nameStart = path.lastIndexOf(QLatin1Char('/')) + 1;
    return path.left(nameStart) + QStringLiteral(".%1.pelk-fcf").arg(path.mid(nameStart));
}

QString StagedFile::backupPath(const QString& path)
{
    return partialPath(path) + QStringLiteral("-old");
}

bool StagedFile::hasStalePartial(const QString& path)
{
    const QString partial = partialPath(path);
    if (FileSystem::kindOf(partial) != FileSystem::Kind::File)
        return false;
    const int descriptor = ::open(QFile::encodeName(partial).constData(),
                                  O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool stale = lock(descriptor);
    ::close(descriptor);
    return stale;
}

bool StagedFile::clearStalePartial(const QString& path, FileError* error)
{
    return StagedFile(path).fail(clearUnlessLocked(partialPath(path)), error);
}

bool StagedFile::open(FileError* error)
{
    int number = EEXIST;
    for (int attempt = 0; attempt < Attempts && number == EEXIST; ++attempt) {
        const int descriptor = openNew(m_partial);
        if (descriptor >= 0 && lock(descriptor) && stillStandsAt(m_partial, descriptor)) {
            m_descriptor = descriptor;
            m_state = Temporary;
            m_file.setFileName(m_path);
            if (!m_file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
                error->path = m_path;
                error->reason = m_file.errorString();
                return false;
            }
            return fail(clearBackup(), error);
        }
        if (descriptor >= 0) {
            ::close(descriptor);
            continue;
        }
        number = errno;
        if (number != EEXIST)
            break;
        const int clearing = clearUnlessLocked(m_partial);
        if (clearing != 0)
            number = clearing;
    }
    return fail(number == EEXIST ? EBUSY : number, error);
}

bool StagedFile::complete(FileError* error) { return fail(FileSystem::sync(m_descriptor), error); }

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
    return fail(number, error);
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
    const QString backup = backupPath(m_path);
    int number = FileSystem::link(m_path, backup);
    // Without links there is a moment with nothing in the place; see clearBackup().
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

/// Clears what a killed run kept, or puts it back if that run came no further.
int StagedFile::clearBackup() const
{
    const QString backup = backupPath(m_path);
    if (FileSystem::kindOf(backup) == FileSystem::Kind::Nothing)
        return 0;
    const int number = FileSystem::renameToFree(backup, m_path);
    return number == EEXIST ? FileSystem::unlink(backup) : number;
}

bool StagedFile::takeBack()
{
    if (m_state == Exchanged) {
        if (!keepsReplaced() || FileSystem::exchange(m_partial, m_path) != 0)
            return false;
        m_state = Temporary;
    } else if (m_state == BackedUp) {
        if (!keepsReplaced() || FileSystem::renameOver(keptPath(), m_path) != 0)
            return false;
        m_state = Unused;
    } else if (m_state == Placed) {
        // Another program may have put its own file there since.
        if (stillStandsAt(m_path, m_descriptor) && FileSystem::unlink(m_path) != 0)
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
    return m_state == BackedUp ? backupPath(m_path) : m_partial;
}

/// What was replaced is not locked: a run that started meanwhile may have cleared it, and have put
/// its own file under that name.
bool StagedFile::keepsReplaced() const
{
    return m_replaced && m_replaced == FileSystem::entryIdentityOf(keptPath());
}

/// Returns whether there is no error after all.
bool StagedFile::fail(int number, FileError* error) const
{
    if (number == 0)
        return true;
    error->path = m_path;
    error->exists = number == EEXIST;
    error->reason = number == EWOULDBLOCK ? QStringLiteral("another run of pelk-fcf is writing it")
                                          : FileSystem::reason(number);
    return false;
}

StagedFiles::StagedFiles(std::function<void(const char*)> beforeStep)
    : m_beforeStep(std::move(beforeStep))
{
}

QFile* StagedFiles::add(const QString& path, FileError* error)
{
    m_beforeStep("open");
    auto staged = std::make_unique<StagedFile>(path);
    if (!staged->open(error))
        return nullptr;
    m_files.push_back(std::move(staged));
    return &m_files.back()->file();
}

bool StagedFiles::place(bool replacing, FileError* error)
{
    if (!completeAll(error))
        return false;
    if (!placeAll(replacing, error) || !syncFolder(error)) {
        takeAllBack(error);
        return false;
    }
    for (const auto& file : m_files) {
        m_beforeStep("settle");
        if (!file->settle())
            m_leftBehind << file->keptPath();
    }
    return true;
}

void StagedFiles::takeAllBack(FileError* error)
{
    for (const auto& file : m_files) {
        if (!file->takeBack())
            error->reason +=
                QStringLiteral("; %1 could not be put back, what stood there before is "
                               "kept as %2")
                    .arg(shownText(file->path()), shownText(file->keptPath()));
    }
}

/// All outputs are in one folder.
bool StagedFiles::syncFolder(FileError* error)
{
    m_beforeStep("sync folder");
    const QString path = m_files.front()->path();
    const int number = FileSystem::syncFolderOf(path);
    if (number != 0)
        *error = FileError{path, FileSystem::reason(number)};
    return number == 0;
}

bool StagedFiles::completeAll(FileError* error)
{
    for (const auto& file : m_files) {
        m_beforeStep("complete");
        if (!file->complete(error))
            return false;
    }
    return true;
}

bool StagedFiles::placeAll(bool replacing, FileError* error)
{
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        m_beforeStep("place");
        if (!(*file)->place(replacing, error))
            return false;
    }
    return true;
}
