#include "FileError.h"

#include "tool/FileSystem.h"

#include <cerrno>

bool FileError::take(int number, const QString& failedPath)
{
    if (number == 0)
        return true;
    path = failedPath;
    exists = number == EEXIST;
    reason = number == EWOULDBLOCK ? QStringLiteral("another run of pelk-fcf is writing it")
                                   : FileSystem::reason(number);
    return false;
}
