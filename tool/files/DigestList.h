#ifndef TOOL_FILES_DIGESTLIST_H
#define TOOL_FILES_DIGESTLIST_H

#include <QByteArray>
#include <QList>
#include <QString>

/// The digests of one or more files, in any form that sha256sum writes.
class DigestList {
public:
    /// Bytes of the longest list that is read: that of some ten thousand files.
    static constexpr qint64 MaximumBytes = qint64(4) * 1024 * 1024;

    struct Entry {
        /// Binary.
        QByteArray digest;
        /// As the file system has it.
        QByteArray path;
    };

    /// The list \p lines, which is in \p folder. Lines that hold no digest are passed over.
    DigestList(const QByteArray& lines, const QString& folder);

    const QList<Entry>& entries() const { return m_entries; }

    /// The entries whose paths, seen from the folder of the list or from here, lead to the file at
    /// \p path.
    QList<Entry> entriesOfFile(const QString& path) const;

    /// The entries whose last name is that of \p path.
    QList<Entry> entriesOfName(const QString& path) const;

    /// Whether \p lines are the one line of a digest beside an image, of whatever name.
    static bool isDigest(const QByteArray& lines);

private:
    QString m_folder;
    QList<Entry> m_entries;
};

#endif
