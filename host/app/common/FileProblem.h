#ifndef HOST_APP_COMMON_FILEPROBLEM_H
#define HOST_APP_COMMON_FILEPROBLEM_H

#include <QDir>

/// What is wrong with the file or folder at \p path, for the user: the path as the platform writes
/// it, a colon and the reason.
inline QString fileProblem(const QString& path, const QString& reason)
{
    // Both at once: a path may have "%2" in it.
    return QString("%1: %2").arg(QDir::toNativeSeparators(path), reason);
}

#endif
