#ifndef TOOL_STAGEDFILE_H
#define TOOL_STAGEDFILE_H

#include "tool/FileSystem.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// What could not be done to which file.
struct FileError {
    QString path;
    QString reason;
    /// Whether the reason is that something stands where an output was to go.
    bool exists = false;
};

/// A file that is completed under a temporary name in its own folder and then put in its place.
///
/// The temporary name follows from the file's own, and is locked while it is in use. So a run that
/// was killed leaves at most one file for each output, and the next run for the same output tells
/// from the missing lock that it is free to clear it.
class StagedFile {
public:
    explicit StagedFile(const QString& path);
    /// Leaves neither the temporary file nor, unless it was put in place, any other trace.
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    /// The temporary name of the file at \p path.
    static QString partialPath(const QString& path);

    /// Where the file at \p path is kept until its replacement is sure to stay, on a file system
    /// that cannot exchange two files.
    static QString backupPath(const QString& path);

    /// Whether a killed run left a temporary file for \p path. One that a run still uses is none.
    static bool hasStalePartial(const QString& path);

    /// Removes what a killed run left for \p path.
    static bool clearStalePartial(const QString& path, FileError* error);

    const QString& path() const { return m_path; }
    QFile& file() { return m_file; }

    /// Creates the temporary file, once what a killed run left is cleared.
    bool open(FileError* error);

    /// Brings all that was written to the disk.
    bool complete(FileError* error);

    /// Puts the file in its place in one step; with \p replacing over what stands there, which is
    /// kept for now.
    bool place(bool replacing, FileError* error);

    /// Undoes place(). Where that fails, what stood there before is still at keptPath().
    bool takeBack();

    /// Makes place() last. Returns whether what stood there before is gone.
    bool settle();

    /// Where that is which the file took the place of.
    QString keptPath() const;

private:
    enum State { Unused, Temporary, Placed, Exchanged, BackedUp };

    int replace();
    int replaceWithBackup();
    int clearBackup() const;
    bool fail(int number, FileError* error) const;
    bool keepsReplaced() const;

    const QString m_path;
    const QString m_partial;
    QFile m_file;
    int m_descriptor = -1;
    State m_state = Unused;
    std::optional<FileSystem::Identity> m_replaced;
};

/// Files that are put in place together: all of them, or none.
class StagedFiles {
public:
    /// \p beforeStep is called before each step with the step's name.
    explicit StagedFiles(std::function<void(const char*)> beforeStep);

    /// Adds a file, open for writing, or returns null. The first one is put in place last, and as
    /// long as it is not, keeps other runs for the same outputs away.
    QFile* add(const QString& path, FileError* error);

    /// Completes all files and puts them in place, with \p replacing over what stands there.
    ///
    /// No file system has one step for several files. So the last one to go is the one that others
    /// go by, the image: whoever sees it sees all that belongs to it. A kill between two of the
    /// steps leaves, where there was nothing, files without an image, which the next run recognises
    /// as its own and replaces; where there was an image, the one from before beside a companion or
    /// digest from now. Nothing is lost by that: an image begins with its companion's bytes.
    bool place(bool replacing, FileError* error);

    /// Replaced files that place() could not remove once all was in place.
    const QStringList& leftBehind() const { return m_leftBehind; }

private:
    bool completeAll(FileError* error);
    bool placeAll(bool replacing, FileError* error);
    bool syncFolder(FileError* error);
    void takeAllBack(FileError* error);

    std::function<void(const char*)> m_beforeStep;
    std::vector<std::unique_ptr<StagedFile>> m_files;
    QStringList m_leftBehind;
};

#endif
