#include "host/archive/Unpacked.h"

#include "host/archive/ArchivedDesign.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

Unpacked::Unpacked(const QString& archive)
{
    const QTemporaryDir folder;
    if (archive.endsWith(".zip")) {
        run("unzip", {"-t", archive});
        run("unzip", {"-q", archive, "-d", folder.path()});
    } else {
        run("tar", {"-xzf", archive, "-C", folder.path()});
    }
    names = QString::fromUtf8(run("bsdtar", {"-tf", archive})).split('\n', Qt::SkipEmptyParts);

    const QDir root(folder.path());
    QDirIterator iterator(folder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QString path = iterator.next();
        const QString name = root.relativeFilePath(path);
        // Unpacking makes folders for files too; only those that the archive has are members.
        if (!iterator.fileInfo().isDir())
            members[name] = ArchivedDesign::read(path);
        else if (names.contains(name + '/'))
            members[name + '/'] = {};
    }
}

QByteArray Unpacked::run(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tool, arguments);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        fault += tool + ": " + process.errorString();
        return {};
    }
    QByteArray output = process.readAll();
    if (process.exitCode() != 0)
        fault += tool + ": " + QString::fromUtf8(output);
    return output;
}
