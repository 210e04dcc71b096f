#ifndef TOOL_FILES_FOLDERLOCK_H
#define TOOL_FILES_FOLDERLOCK_H

#include <QString>

/// Keeps other runs from giving files of a folder their names as long as it exists, so that what is
/// opened meanwhile belongs together. Several runs can have it at once.
///
/// A folder that cannot be opened, or that is on a file system without locks, is not locked.
class FolderLock {
public:
    /// Waits until no run gives names in the folder of \p path. Standard input has no folder.
    explicit FolderLock(const QString& path);
    ~FolderLock();
    Q_DISABLE_COPY(FolderLock)

private:
    int m_folder = -1;
};

#endif
