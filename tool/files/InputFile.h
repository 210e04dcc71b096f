#ifndef TOOL_FILES_INPUTFILE_H
#define TOOL_FILES_INPUTFILE_H

#include "tool/base/Result.h"
#include "tool/files/FileSystem.h"

#include <QFile>
#include <QString>

#include <memory>
#include <optional>

/// A file that is read, from any place in it. Standard input and pipes are first spooled into a
/// file without a name.
class InputFile {
public:
    /// What messages call the file at \p path.
    static QString labelOf(const QString& path);

    /// What messages call it.
    const QString& label() const { return m_label; }
    /// Its path, or "-".
    const QString& path() const { return m_path; }
    bool isStandardInput() const;

    /// Its size in bytes when it was opened, or that of the part that is left.
    qint64 size() const { return m_size; }

    /// Leaves the \p bytes bytes from \p offset on, as if there were no others in the file.
    void narrow(qint64 offset, qint64 bytes);
    bool isPart() const { return m_isPart; }

    /// Up to \p bytes bytes from \p offset on; fewer at the end.
    Result<QByteArray> bytesAt(qint64 offset, qint64 bytes) const;

    /// The open file, all of it, to be read from any position. Owned.
    QFile* device() const { return m_file.get(); }

    /// Lets another program replace the file while it is read: what was opened stays whole.
    void allowReplacing() { m_mayBeReplaced = true; }

    /// Returns an error if the file was written to since it was opened, or replaced without leave.
    Status checkUnchanged() const;

    /// The error that it cannot be read, and why.
    tl::unexpected<Finding> notRead(const QString& reason, const QString& field = {}) const;

private:
    friend class InputOpener;

    QString m_path;
    QString m_label;
    std::unique_ptr<QFile> m_file;
    /// Where in the file the part that is left begins, in bytes.
    qint64 m_start = 0;
    qint64 m_size = 0;
    bool m_isPart = false;
    /// Its version when it was opened; nothing for a stream.
    std::optional<FileSystem::Version> m_version;
    bool m_mayBeReplaced = false;
};

#endif
