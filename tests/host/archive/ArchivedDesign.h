#ifndef TESTS_HOST_ARCHIVE_ARCHIVEDDESIGN_H
#define TESTS_HOST_ARCHIVE_ARCHIVEDDESIGN_H

#include <OrvanticCore/Design.h>

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

/// How long a test waits at most for an archive of it, in milliseconds.
constexpr int PatienceMs = 60000;

/// A design of version 1.0 on the disk, in the folder "radar", with something of every kind:
/// files, one of them with blanks and one with letters beyond ASCII in its name, a generated file,
/// an external file, and a folder with a hidden file and an empty folder in it. A file that is not
/// of the design lies there too.
class ArchivedDesign {
public:
    ArchivedDesign();

    OrvanticCore::Design& design() { return m_design; }

    /// A path in the design's folder.
    QString path(const QString& name) const;
    /// A path outside it, on the same disk.
    QString outside(const QString& name) const { return m_folder.filePath(name); }

    /// Writes a file and returns its path.
    static QString write(const QString& path, const QByteArray& content);
    static QByteArray read(const QString& path);

    /// What is in the folder of \p path, hidden files included.
    static QStringList filesBeside(const QString& path);

    /// The members of a configuration package, which are the files in the design's folder, source
    /// and generated, and the description, with the text "description": contents by name, folders
    /// with a slash at the end.
    QMap<QString, QByteArray> configMembers() const;

    /// The same with the design's folders.
    QMap<QString, QByteArray> membersWithFolders() const;

private:
    QTemporaryDir m_folder;
    OrvanticCore::Design m_design;
};

#endif
