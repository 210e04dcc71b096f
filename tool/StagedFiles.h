#ifndef TOOL_STAGEDFILES_H
#define TOOL_STAGEDFILES_H

#include "tool/StagedFile.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// Files that are put in place together: all of them, or none.
class StagedFiles {
public:
    /// \p beforeStep is called before each step with the step's name.
    explicit StagedFiles(std::function<void(const char*)> beforeStep);

    ~StagedFiles() { release(); }
    StagedFiles(const StagedFiles&) = delete;
    StagedFiles& operator=(const StagedFiles&) = delete;

    /// Adds a file, open for writing, or returns null. The first one is put in place last.
    QFile* add(const QString& path, FileError* error);

    /// Completes all files, closes them and puts them in place, with \p replacing over what stands
    /// there.
    ///
    /// No file system has one step for several files. So the last one to go is the one that others
    /// go by, the image: whoever sees it sees all that belongs to it. The signals that ask a
    /// program to end wait until all is done. After a kill that cannot wait there may be files
    /// without their image, or beside the one from before; KilledRun undoes that.
    bool place(bool replacing, FileError* error);

    /// What place() could not remove of its files on the way.
    const QStringList& leftBehind() const { return m_leftBehind; }

private:
    bool putInPlace(bool replacing, FileError* error);
    void release();
    bool completeAll(FileError* error);
    bool placeAll(bool replacing, FileError* error);
    bool syncFolder(FileError* error);
    void takeAllBack(FileError* error);

    std::function<void(const char*)> m_beforeStep;
    std::vector<std::unique_ptr<StagedFile>> m_files;
    QStringList m_leftBehind;
};

#endif
