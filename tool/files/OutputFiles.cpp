#include "tool/files/OutputFiles.h"

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
/// What a file without a name is called in the moment before it replaces another. Only one run at
/// a time has the folder locked, so that it clears what a killed one left under that name.
const QByteArray MomentaryName = ".pelk-fcf-new";

/// Of the regular file \p name; nothing for anything else.
std::optional<mode_t> modeOf(int folder, const QByteArray& name)
{
    struct stat status;
    if (::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISREG(status.st_mode))
        return std::nullopt;
    return status.st_mode & Permissions;
}

bool exists(int folder, const QByteArray& name)
{
    return ::faccessat(folder, name.constData(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
}

/// What became of a system call for \p path that returned \p returned.
Status outcome(int returned, const QString& path)
{
    if (returned == 0)
        return {};
    if (errno == EEXIST)
        return FileSystem::alreadyExists(path);
    return FileSystem::notWritten(path, FileSystem::reason());
}

} // namespace

OutputFiles::~OutputFiles()
{
    for (const auto& file : m_files)
        forgetTemporary(file.get());
    if (m_folder >= 0)
        ::close(m_folder);
}

Result<QFile*> OutputFiles::add(const QString& path)
{
    if (m_folder < 0) {
        m_folderPath = FileSystem::folderOf(path);
        m_folder = ::open(m_folderPath.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (m_folder < 0)
            return FileSystem::notWritten(path, FileSystem::reason());
    }
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

Status OutputFiles::add(const QString& path, const QByteArray& bytes)
{
    return add(path).and_then([&](QFile* file) { return writeAll(file, bytes, path); });
}

Status OutputFiles::place()
{
    for (const auto& file : m_files) {
        if (Status status = outcome(::fsync(file->device.handle()), file->path); !status)
            return status;
    }
    // On a file system without locks two runs may mix their files.
    while (::flock(m_folder, LOCK_EX) != 0 && errno == EINTR) {
    }
    const SignalBlock block;
    for (auto file = m_files.rbegin(); m_existing == Keep && file != m_files.rend(); ++file) {
        if (exists(m_folder, (*file)->name))
            return FileSystem::alreadyExists((*file)->path);
    }
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        if (Status status = place(file->get()); !status) {
            rollBack();
            return status;
        }
    }
    // Some file systems keep names on the disk at all times, and have no such call.
    const int synced = ::fsync(m_folder);
    return synced != 0 && errno == EINVAL ? Status() : outcome(synced, m_files.front()->path);
}

Status OutputFiles::place(File* file)
{
    Status status = placeNew(*file);
    file->isNew = status.has_value();
    if (!status && status.error().exitCode == ExitCode::OutputExists && m_existing == Replace)
        status = replace(file);
    return status;
}

Status OutputFiles::placeNew(const File& file) const
{
    if (file.temporary.isEmpty())
        return link(file, file.name);
    const int renamed = ::renameat2(m_folder, file.temporary.constData(), m_folder,
                                    file.name.constData(), RENAME_NOREPLACE);
    if (renamed == 0 || (errno != EINVAL && errno != ENOSYS))
        return outcome(renamed, file.path);
    const int linked =
        ::linkat(m_folder, file.temporary.constData(), m_folder, file.name.constData(), 0);
    if (linked == 0 || (errno != EPERM && errno != EOPNOTSUPP))
        return outcome(linked, file.path);
    // A file system without either leaves a moment for another program.
    return exists(m_folder, file.name) ? Status(FileSystem::alreadyExists(file.path))
                                       : rename(file);
}

Status OutputFiles::replace(File* file) const
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

Status OutputFiles::link(const File& file, const QByteArray& name) const
{
    const QByteArray opened = "/proc/self/fd/" + QByteArray::number(file.device.handle());
    return outcome(
        ::linkat(AT_FDCWD, opened.constData(), m_folder, name.constData(), AT_SYMLINK_FOLLOW),
        file.path);
}

Status OutputFiles::rename(const File& file) const
{
    return outcome(
        ::renameat(m_folder, file.temporary.constData(), m_folder, file.name.constData()),
        file.path);
}

/// The name is there no more once the file has its own.
void OutputFiles::forgetTemporary(File* file)
{
    if (file->temporary.isEmpty())
        return;
    ::unlinkat(m_folder, file->temporary.constData(), 0);
    TemporaryFile::forget(m_folderPath, file->temporary);
}

void OutputFiles::rollBack()
{
    for (const auto& file : m_files) {
        if (file->isNew)
            ::unlinkat(m_folder, file->name.constData(), 0);
    }
}
