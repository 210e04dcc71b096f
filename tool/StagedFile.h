#ifndef TOOL_STAGEDFILE_H
#define TOOL_STAGEDFILE_H

#include "tool/FileError.h"
#include "tool/FileSystem.h"

#include <QFile>
#include <QString>

#include <optional>

/// A file that is completed under a temporary name in its own folder and then put in its place.
class StagedFile {
public:
    explicit StagedFile(const QString& path);
    /// Leaves no temporary name, and unless it was put in place, no other trace.
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    const QString& path() const { return m_path; }
    QFile& file() { return m_file; }

    /// Creates the temporary file. From the start nobody
    /// may read it who may not read what it is to replace.
    bool open(FileError* error);

    /// Brings all that was written to the disk.
    bool complete(FileError* error);

    /// Puts the file in its place in one step; with \p replacing over what stands there, which is
    /// kept for now.
    bool place(bool replacing, FileError* error);

    /// Undoes place(). Where that fails, what stood there before is still beside it: see
    /// setAside().
    bool takeBack();

    /// Makes place() last. Returns whether what stood there before is gone.
    bool settle();

    /// Keeps for good what takeBack() could not put back. Returns where.
    QString setAside();

    /// Gives the temporary name free. Returns whether it is gone.
    bool release();

    const QString& partialPath() const { return m_partial; }

    /// Where that is which the file took the place of.
    QString keptPath() const;

private:
    int placeWhereNothingIs();
    int replace();
    int replaceKept();
    bool keepsReplaced() const;

    const QString m_path;
    const QString m_partial;
    QFile m_file;
    int m_descriptor = -1;
    bool m_isPlaced = false;
    std::optional<FileSystem::Identity> m_replaced;
};

#endif
