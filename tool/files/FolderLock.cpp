#include "tool/files/FolderLock.h"

#include "tool/base/Text.h"
#include "tool/files/FileSystem.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

FolderLock::FolderLock(const QString& path)
{
    if (path == StandardStream)
        return;

    m_folder = ::open(FileSystem::folderOf(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0)
        return;

    while (::flock(m_folder, LOCK_SH) != 0 && errno == EINTR) {
    }
}

FolderLock::~FolderLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}
