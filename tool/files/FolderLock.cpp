#include "tool/files/FolderLock.h"

#include "tool/base/Text.h"
#include "tool/files/FileSystem.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

FolderLock::FolderLock(const QString& path, Waiting waiting)
{
    if (path == StandardStream)
        return;

    m_folder = ::open(FileSystem::folderOf(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_folder < 0)
        return;

    const int operation = waiting == Waits ? LOCK_SH : LOCK_SH | LOCK_NB;
    int result = 0;
    do {
        result = ::flock(m_folder, operation);
    } while (result != 0 && errno == EINTR);
    m_isBusy = result != 0 && errno == EWOULDBLOCK;
}

FolderLock::~FolderLock()
{
    if (m_folder >= 0)
        ::close(m_folder);
}
