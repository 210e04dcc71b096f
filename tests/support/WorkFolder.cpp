#include "support/WorkFolder.h"

#include "support/TestFile.h"

#include <QDir>
#include <QFileInfo>

#include <cstdlib>

namespace {

void removeFolder(const QString& path)
{
    const QDir folder(path);
    foreach (const QFileInfo& entry,
             folder.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (entry.isDir() && !entry.isSymLink())
            removeFolder(entry.filePath());
        else
            QFile::remove(entry.filePath());
    }
    QDir().rmdir(path);
}

} // namespace

WorkFolder::WorkFolder(const QString& parent)
{
    QByteArray path =
        QFile::encodeName(parent.isEmpty() ? QDir::tempPath() : parent) + "/test-XXXXXX";
    if (!mkdtemp(path.data()))
        qFatal("no folder for the test");
    m_path = QFile::decodeName(path);
}

WorkFolder::~WorkFolder() { removeFolder(m_path); }

QString WorkFolder::path(const QString& name) const
{
    return name.isEmpty() ? m_path : m_path + QLatin1Char('/') + name;
}

QString WorkFolder::write(const QString& name, const QByteArray& bytes) const
{
    return TestFile::write(path(name), bytes);
}

QByteArray WorkFolder::read(const QString& path) { return TestFile::readIfPossible(path); }
