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
    struct stat status;
    return ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

int result(int returned) { return returned == 0 ? 0 : errno; }

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
            return FileSystem::notWritten(path, FileSystem::reason(errno));
    }
    auto file = std::make_unique<File>();
    file->path = path;
    file->name = FileSystem::nameOf(path);
    const mode_t mode = modeOf(m_folder, file->name).value_or(UsualMode);
    const int descriptor = TemporaryFile::open(m_folderPath, mode, &file->temporary);
    if (descriptor < 0)
        return FileSystem::notWritten(path, FileSystem::reason(errno));
    file->device.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle);
    m_files.push_back(std::move(file));
    return &m_files.back()->device;
}

Status OutputFiles::add(const QString& path, const QByteArray& bytes)
{
    const auto file = add(path);
    return file ? writeAll(*file, bytes, path) : Status(tl::unexpected<Finding>(file.error()));
}

Status OutputFiles::place()
{
    if (Status status = complete(); !status)
        return status;
    const File& last = *m_files.front();
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
    if (::fsync(m_folder) != 0 && errno != EINVAL)
        return FileSystem::notWritten(last.path, FileSystem::reason(errno));
    return {};
}

Status OutputFiles::complete()
{
    for (const auto& file : m_files) {
        if (::fsync(file->device.handle()) != 0)
            return FileSystem::notWritten(file->path, FileSystem::reason(errno));
    }
    return {};
}

Status OutputFiles::place(File* file)
{
    int error = placeNew(file);
    file->isNew = error == 0;
    if (error == EEXIST && m_existing == Replace)
        error = replace(file);
    if (error == EEXIST)
        return FileSystem::alreadyExists(file->path);
    if (error != 0)
        return FileSystem::notWritten(file->path, FileSystem::reason(error));
    return {};
}

/// Returns 0 or an errno: EEXIST if there is something already.
int OutputFiles::placeNew(File* file)
{
    if (file->temporary.isEmpty())
        return link(*file, file->name);
    int error = rename(file->temporary, file->name, RENAME_NOREPLACE);
    if (error == EINVAL || error == ENOSYS)
        error = result(
            ::linkat(m_folder, file->temporary.constData(), m_folder, file->name.constData(), 0));
    // A file system without either leaves a moment for another program.
    if (error == EPERM || error == EOPNOTSUPP)
        error = exists(m_folder, file->name) ? EEXIST : rename(file->temporary, file->name, 0);
    return error;
}

int OutputFiles::replace(File* file)
{
    if (const auto mode = modeOf(m_folder, file->name))
        ::fchmod(file->device.handle(), *mode);
    if (file->temporary.isEmpty()) {
        ::unlinkat(m_folder, MomentaryName.constData(), 0);
        if (const int error = link(*file, MomentaryName))
            return error;
        file->temporary = MomentaryName;
    }
    return rename(file->temporary, file->name, 0);
}

int OutputFiles::link(const File& file, const QByteArray& name) const
{
    const QByteArray opened = "/proc/self/fd/" + QByteArray::number(file.device.handle());
    return result(
        ::linkat(AT_FDCWD, opened.constData(), m_folder, name.constData(), AT_SYMLINK_FOLLOW));
}

int OutputFiles::rename(const QByteArray& from, const QByteArray& to, unsigned flags) const
{
    return result(::renameat2(m_folder, from.constData(), m_folder, to.constData(), flags));
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
