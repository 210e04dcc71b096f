#ifndef TESTS_GENERATOR_MODEL_DISKMODEL_H
#define TESTS_GENERATOR_MODEL_DISKMODEL_H

#include <QByteArray>
#include <QMap>
#include <QString>

/// What a test compares of a file: all bytes of a small one, both ends of one of many MiB.
struct FileState {
    FileState() : size(0) {}

    static FileState of(const QByteArray& bytes);
    static FileState ofFile(const QString& path);

    qint64 size;
    QByteArray bytes;
};

bool operator==(const FileState& left, const FileState& right);

/// One entry of a folder.
struct DiskEntry {
    enum Kind { File, Folder, Pipe, Link };

    explicit DiskEntry(Kind kind_ = File, const QByteArray& bytes_ = QByteArray())
        : kind(kind_), bytes(bytes_)
    {
    }

    Kind kind;
    /// Of a link, the path that it leads to.
    QByteArray bytes;
};

/// The files in the working folder of a test as they should be. A plain value.
class DiskModel {
public:
    /// Whether there is an entry that can be reached, through a link too.
    bool exists(const QString& path) const { return at(path); }
    bool isFile(const QString& path) const { return isOfKind(path, DiskEntry::File); }
    bool isFolder(const QString& path) const { return isOfKind(path, DiskEntry::Folder); }
    bool isPipe(const QString& path) const { return isOfKind(path, DiskEntry::Pipe); }
    /// Of the file at \p path; 0 without one.
    qint64 size(const QString& path) const;
    QByteArray bytes(const QString& path) const;

    /// Opens the file at \p path for writing and empties it. Returns why that is not possible, or
    /// nothing.
    QString truncate(const QString& path);
    /// Why the file at \p path cannot be read or appended to, or nothing.
    QString whyNotRead(const QString& path) const;
    QString whyNotAppend(const QString& path) const;
    /// Writes \p bytes over those of the file, from \p offset on.
    void write(const QString& path, qint64 offset, const QByteArray& bytes);
    bool remove(const QString& path) { return entries.remove(key(path)) == 1; }

    /// Puts an entry to \p path if its folder exists and nothing is there yet. Returns whether.
    bool add(const QString& path, const DiskEntry& entry);
    /// As add(), but replaces a file.
    bool replace(const QString& path, const QByteArray& bytes);

    /// Each with its path, which is relative to the working folder.
    QMap<QString, DiskEntry> entries;
    /// The working folder.
    QString root;

    /// How an entry is listed that has \p path, as an absolute or a relative path.
    QString key(const QString& path) const;

private:
    bool isOfKind(const QString& path, DiskEntry::Kind kind) const;
    const DiskEntry* at(const QString& path) const;
    /// The key of the entry behind a link.
    QString target(const QString& path) const;
    bool hasFolder(const QString& entry) const;
};

#endif
