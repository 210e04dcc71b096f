#include "host/app/common/FileProblem.h"

#include <QDir>

QString fileProblem(const QString& path, const QString& reason)
{
    // Both at once: a path may have "%2" in it.
    return QString("%1: %2").arg(QDir::toNativeSeparators(path), reason);
}
