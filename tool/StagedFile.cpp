#include "StagedFile.h"

#include "tool/FileSystem.h"

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
            m_file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered);
            return true;
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
        if (FileSystem::kindOf(m_path) == FileSystem::Kind::Folder)
            return fail(EISDIR, error);
        m_replaced = FileSystem::entryIdentityOf(m_path);
        number = FileSystem::exchange(m_partial, m_path);
        m_state = number == 0 ? Exchanged : Temporary;
        if (number != EINVAL && number != ENOSYS)
            return fail(number, error);
        // Where the two cannot be exchanged, what stood there before is lost from here on.
        number = FileSystem::renameOver(m_partial, m_path);
    } else {
        number = FileSystem::renameToFree(m_partial, m_path);
    }
    if (number == 0)
        m_state = Placed;
    return fail(number, error);
}

void StagedFile::takeBack()
{
    if (m_state == Exchanged && keepsReplaced() && FileSystem::exchange(m_partial, m_path) == 0) {
        m_state = Temporary;
    } else if (m_state == Placed) {
        FileSystem::unlink(m_path);
        m_state = Unused;
    }
}

void StagedFile::settle()
{
    if (m_state == Exchanged && keepsReplaced())
        FileSystem::unlink(m_partial);
    m_state = Placed;
}

/// What was replaced is not locked: a run that started meanwhile may have cleared it, and have put
/// its own file under that name.
bool StagedFile::keepsReplaced() const
{
    return m_replaced && m_replaced == FileSystem::entryIdentityOf(m_partial);
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
    if (!placeAll(replacing, error)) {
        for (const auto& file : m_files)
            file->takeBack();
        return false;
    }
    m_beforeStep("sync folder");
    const QString path = m_files.front()->path();
    const int number = FileSystem::syncFolderOf(path);
    for (const auto& file : m_files) {
        m_beforeStep("settle");
        file->settle();
    }
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
