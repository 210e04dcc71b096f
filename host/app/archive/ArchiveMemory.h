#ifndef HOST_APP_ARCHIVE_ARCHIVEMEMORY_H
#define HOST_APP_ARCHIVE_ARCHIVEMEMORY_H

#include <QString>

/// What the archive dialog was last used with, in the host's settings.
struct ArchiveMemory {
    /// The name of the archive type.
    QString type;
    /// The extension of the format, without dot.
    QString extension;
    /// Of the last plain archive of that design; empty for the one that its structure has.
    QString folder;

    /// \p designFolder is the path of the design's folder.
    static ArchiveMemory load(const QString& designFolder);
    void save(const QString& designFolder) const;
};

#endif
