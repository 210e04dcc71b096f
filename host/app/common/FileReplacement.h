#ifndef HOST_APP_COMMON_FILEREPLACEMENT_H
#define HOST_APP_COMMON_FILEREPLACEMENT_H

#include <QSaveFile>

/// A file that takes the place of the one at its path when it is complete, or not at all. Until
/// then it has a temporary name in the same folder. All operations throw a HostError.
class FileReplacement {
public:
    /// Opens the temporary file. What is at \p path already must be a file.
    explicit FileReplacement(const QString& path);

    /// The device to write to. Owned.
    QIODevice* device() { return &m_file; }

    /// Writes all of \p bytes.
    void write(const QByteArray& bytes);

    /// Brings what was written to the disk.
    void sync();

    /// Replaces the file at the path. Without this it stays as it was.
    void commit();

private:
    [[noreturn]] void fail(const QString& reason) const;

    QSaveFile m_file;
};

#endif
