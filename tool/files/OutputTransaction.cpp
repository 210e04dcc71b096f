#include "tool/files/OutputTransaction.h"

#include "tool/files/Copy.h"
#include "tool/files/FileSystem.h"
#include "tool/files/TemporaryFile.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t UsualMode = 0666;
constexpr mode_t Permissions = 07777;
/// The name that a file without one has in the moment before it replaces another. Only one run at a
/// time has the folder locked, so it can remove what a killed run left under that name.
const QByteArray MomentaryName = ".pelk-fcf-new";

/// The mode of the regular file \p name; nothing for anything else.
std::optional<mode_t> modeOf(int folder, const QByteArray& name)
{
    struct stat status;
    if (::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    if (!S_ISREG(status.st_mode))
        return std::nullopt;

    return status.st_mode & Permissions;
}

bool exists(int folder, const QByteArray& name)
{
    return ::faccessat(folder, name.constData(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
}

/// The outcome of a system call for \p path that returned \p returned.
Status outcome(int returned, const QString& path)
{
    if (returned == 0)
        return {};
    if (errno == EEXIST)
        return FileSystem::alreadyExists(path);
    return FileSystem::notWritten(path, FileSystem::reason());
}

} // namespace

OutputTransaction::~OutputTransaction()
{
    for (const auto& file : m_files)
        removeTemporary(file.get());
    if (m_folder >= 0)
        ::close(m_folder);
}

Result<QFile*> OutputTransaction::add(const QString& path)
{
    if (const Status opened = openFolder(path); !opened)
        return tl::unexpected<Finding>(opened.error());

    auto file = std::make_unique<File>();
    file->path = path;
    file->name = FileSystem::nameOf(path);

    const mode_t mode = modeOf(m_folder, file->name).value_or(UsualMode);
    const auto opened = TemporaryFile::open(m_folderPath, mode);
    if (!opened)
        return FileSystem::notWritten(path, opened.error());

    file->temporary = opened->name;
    file->device.open(opened->descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle);
    m_files.push_back(std::move(file));
    return &m_files.back()->device;
}

Status OutputTransaction::add(const QString& path, const QByteArray& bytes)
{
    const auto file = add(path);
    if (!file)
        return tl::unexpected<Finding>(file.error());

    return writeOutput(*file, bytes, path);
}

Status OutputTransaction::openFolder(const QString& path)
{
    if (m_folder >= 0)
        return {};

    m_folderPath = FileSystem::folderOf(path);
    m_folder = ::open(m_folderPath.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0)
        return FileSystem::notWritten(path, FileSystem::reason());
    return {};
}

Status OutputTransaction::commit()
{
    if (Status synced = sync(); !synced)
        return synced;

    lockFolder();
    const SignalBlock block;
    if (Status holds = m_condition(); !holds)
        return holds;
    if (m_existing == Keep) {
        if (Status none = checkNoneExists(); !none)
            return none;
    }

    if (Status named = nameAll(); !named) {
        rollBack();
        return named;
    }
    return syncFolder();
}

Status OutputTransaction::sync() const
{
    for (const auto& file : m_files) {
        if (Status status = outcome(::fsync(file->device.handle()), file->path); !status)
            return status;
    }
    return {};
}

/// On a file system without locks two runs may mix their files.
void OutputTransaction::lockFolder() const
{
    while (::flock(m_folder, LOCK_EX) != 0 && errno == EINTR) {
    }
}

Status OutputTransaction::checkNoneExists() const
{
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        if (exists(m_folder, (*file)->name))
            return FileSystem::alreadyExists((*file)->path);
    }
    return {};
}

Status OutputTransaction::nameAll()
{
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        if (Status status = name(file->get()); !status)
            return status;
    }
    return {};
}

Status OutputTransaction::name(File* file)
{
    Status status = nameNew(*file);
    file->isNew = status.has_value();
    if (file->isNew)
        return status;

    const bool isTaken = status.error().exitCode == ExitCode::OutputExists;
    if (isTaken && m_existing == Replace)
        return replace(file);
    return status;
}

Status OutputTransaction::nameNew(const File& file) const
{
    return file.temporary.isEmpty() ? link(file, file.name) : nameTemporary(file);
}

/// Gives \p file, which has a temporary name, its own, unless that is taken.
Status OutputTransaction::nameTemporary(const File& file) const
{
    const int renamed = ::renameat2(m_folder, file.temporary.constData(), m_folder,
                                    file.name.constData(), RENAME_NOREPLACE);
    if (renamed == 0 || (errno != EINVAL && errno != ENOSYS))
        return outcome(renamed, file.path);

    const int linked =
        ::linkat(m_folder, file.temporary.constData(), m_folder, file.name.constData(), 0);
    if (linked == 0 || (errno != EPERM && errno != EOPNOTSUPP))
        return outcome(linked, file.path);

    // On a file system without either, another program may take the name between the two steps.
    if (exists(m_folder, file.name))
        return FileSystem::alreadyExists(file.path);
    return rename(file);
}

Status OutputTransaction::replace(File* file) const
{
    if (const auto mode = modeOf(m_folder, file->name))
        ::fchmod(file->device.handle(), *mode);

    if (file->temporary.isEmpty()) {
        ::unlinkat(m_folder, MomentaryName.constData(), 0);
        if (Status status = link(*file, MomentaryName); !status)
            return status;
        file->temporary = MomentaryName;
    }
    return rename(*file);
}

Status OutputTransaction::link(const File& file, const QByteArray& name) const
{
    const QByteArray opened = "/proc/self/fd/" + QByteArray::number(file.device.handle());
    return outcome(
        ::linkat(AT_FDCWD, opened.constData(), m_folder, name.constData(), AT_SYMLINK_FOLLOW),
        file.path);
}

Status OutputTransaction::rename(const File& file) const
{
    return outcome(
        ::renameat(m_folder, file.temporary.constData(), m_folder, file.name.constData()),
        file.path);
}

Status OutputTransaction::syncFolder() const
{
    const int synced = ::fsync(m_folder);
    // Some file systems keep names on the disk at all times, and have no such call.
    if (synced != 0 && errno == EINVAL)
        return {};
    return outcome(synced, m_files.front()->path);
}

/// The temporary name is gone once the file has its own; removing it again does no harm.
void OutputTransaction::removeTemporary(File* file)
{
    if (file->temporary.isEmpty())
        return;

    ::unlinkat(m_folder, file->temporary.constData(), 0);
    TemporaryFile::forget(m_folderPath, file->temporary);
}

void OutputTransaction::rollBack()
{
    for (const auto& file : m_files) {
        if (file->isNew)
            ::unlinkat(m_folder, file->name.constData(), 0);
    }
}
