#include "host/app/image/ImageFiles.h"

#include <QDir>
#include <QFileInfo>

ImageFiles ImageFiles::of(const QString& path)
{
    const QFileInfo file(path);
    if (!QStringList({"bin", "fcf", "txt"}).contains(file.suffix()))
        return ImageFiles();

    const QString stem = file.dir().filePath(file.completeBaseName());
    return {stem + ".bin", stem + ".fcf", stem + ".txt", stem + ".fcf.sha256"};
}

bool ImageFiles::canBeMadeAgain() const
{
    return QFileInfo(image).isFile() && QFileInfo(binary).isFile();
}
