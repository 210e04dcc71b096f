#ifndef HOST_APP_COMMON_FILEPROBLEM_H
#define HOST_APP_COMMON_FILEPROBLEM_H

#include <QString>

/// What is wrong with the file or folder at \p path, for the user: the path as the platform writes
/// it, a colon and the reason.
QString fileProblem(const QString& path, const QString& reason);

#endif
