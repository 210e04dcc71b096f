#ifndef TOOL_FILES_FOLDERLOCK_H
#define TOOL_FILES_FOLDERLOCK_H

#include <QString>

/// Keeps other runs from giving files of a folder their names as long as it exists, so that what is
/// opened meanwhile belongs together. Several runs can have it at once.
///
/// A folder that cannot be opened, or that is on a file system without locks, is not locked.
class FolderLock {
public:
    enum Waiting { Waits, WaitsNot };

    /// Waits until no run gives names in the folder of \p path, or looks only whether one does.
    /// Standard input has no folder.
    explicit FolderLock(const QString& path, Waiting waiting = Waits);
    ~FolderLock();
    Q_DISABLE_COPY(FolderLock)

    /// Whether a run gives names there, so that a lock that does not wait is none.
    bool isBusy() const { return m_isBusy; }

private:
    int m_folder = -1;
    bool m_isBusy = false;
};

#endif
