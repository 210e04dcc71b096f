// Writes the golden pages as bytes, as seeds for the fuzz targets that read pages.
// Usage: make-fuzz-seeds FOLDER GOLDEN...

#include "support/Golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// The page as it is, cut, with a payload, and with damage to one line at a time.
QList<QByteArray> seedsOf(const QByteArray& page)
{
    QList<QByteArray> seeds{page,          page.left(10),  page.left(64),
                            page.left(70), page.left(512), page + QByteArray(64, '\x5a')};
    const int textEnd = page.indexOf("----\n") + 5;
    for (int start = 64; start < textEnd; start = page.indexOf('\n', start) + 1) {
        QByteArray otherPrefix = page;
        otherPrefix[start] = 'x';
        QByteArray undecodable = page;
        undecodable.insert(page.indexOf('\n', start), '\xff');
        // A line without its end, too.
        seeds << otherPrefix << undecodable << page.left(start) << page.left(start + 3);
    }
    seeds << page.left(textEnd - 1);
    QByteArray withReturns = page.left(textEnd);
    seeds << withReturns.left(65) + withReturns.mid(65).replace('\n', "\r\n");
    return seeds;
}

} // namespace

int main(int argc, char** argv)
{
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (argc < 3 || !folder.mkpath("."))
        qFatal("usage: make-fuzz-seeds FOLDER GOLDEN...");
    for (int index = 2; index < argc; ++index) {
        const QString golden = QString::fromLocal8Bit(argv[index]);
        const QByteArray bytes = Golden(golden).bytes();
        const QList<QByteArray> seeds = seedsOf(bytes);
        for (int number = 0; number < seeds.size(); ++number) {
            QFile file(
                folder.filePath(QString("%1-%2").arg(QFileInfo(golden).baseName()).arg(number)));
            if (!file.open(QIODevice::WriteOnly) ||
                file.write(seeds[number]) != seeds[number].size())
                qFatal("cannot write %s", qPrintable(file.fileName()));
        }
    }
    return 0;
}
