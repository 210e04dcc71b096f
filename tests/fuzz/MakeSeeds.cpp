// Writes the golden pages as bytes, as seeds for the fuzz targets that read pages.
// Usage: make-fuzz-seeds FOLDER GOLDEN...

#include "support/Golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

int main(int argc, char** argv)
{
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (argc < 3 || !folder.mkpath("."))
        qFatal("usage: make-fuzz-seeds FOLDER GOLDEN...");
    for (int index = 2; index < argc; ++index) {
        const QString golden = QString::fromLocal8Bit(argv[index]);
        const QByteArray bytes = Golden(golden).bytes();
        // A page cut at its text's end and one with a payload are seeds of their own.
        for (const QByteArray& seed : {bytes, bytes.left(512), bytes + QByteArray(64, '\x5a')}) {
            QFile file(folder.filePath(
                QString("%1-%2").arg(QFileInfo(golden).baseName()).arg(seed.size())));
            if (!file.open(QIODevice::WriteOnly) || file.write(seed) != seed.size())
                qFatal("cannot write %s", qPrintable(file.fileName()));
        }
    }
    return 0;
}
