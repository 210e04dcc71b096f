#include "generator/FileOpening.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

bool isPipe(const QFile& file)
{
#ifdef Q_OS_UNIX
    struct stat status;
    return ::stat(QFile::encodeName(file.fileName()).constData(), &status) == 0 &&
           S_ISFIFO(status.st_mode);
#else
    Q_UNUSED(file)
    return false;
#endif
}

} // namespace

bool FileOpening::open(QFile* file, QIODevice::OpenMode mode, QString* reason)
{
    *reason = refusal(*file, mode);
    if (!reason->isEmpty())
        return false;

    if (file->open(mode))
        return true;
    *reason = file->errorString();
    return false;
}

/// Returns why \p file is not opened in \p mode, or an empty text.
QString FileOpening::refusal(const QFile& file, QIODevice::OpenMode mode)
{
    if (isPipe(file))
        return tr("it is a named pipe");

    const QFileInfo info(file);
    if (mode == QIODevice::ReadOnly && info.exists() && !info.isFile())
        return tr("it is not a file");
    return QString();
}
