#ifndef HOST_APP_ARCHIVE_ARCHIVEDESTINATION_H
#define HOST_APP_ARCHIVE_ARCHIVEDESTINATION_H

#include "host/app/archive/ArchiveFormat.h"

#include <QString>
#include <QStringList>

namespace OrvanticCore {
class Design;
}

/// Where archives of a design go.
///
/// Paths are as the user reads them: with the platform's separators, and relative ones seen from
/// the design's folder. Without a design they are left as they are.
class ArchiveDestination {
public:
    /// \p design may be null. Not owned. \p descriptionName is what its description is called in
    /// its folder, empty when it has none.
    ArchiveDestination(OrvanticCore::Design* design, const QString& descriptionName)
        : m_design(design), m_descriptionName(descriptionName)
    {
    }

    /// The design's own name in the folder that its structure has for \p format; empty without a
    /// design.
    QString proposal(ArchiveFormat format) const;

    /// \p path with the extension of \p format, where it has that of another one, and then also in
    /// the folder that the structure has for \p format, where it lies in the other one's.
    QString withFormat(const QString& path, ArchiveFormat format) const;

    /// \p path with the design's version in front of its format's extension, or without.
    QString withVersion(const QString& path, bool present) const;

    /// The absolute path of the file, with slashes.
    QString filePath(const QString& path) const;

    /// Whether \p path, which an extension has built from the parts of a name, leads out of its
    /// folder.
    static bool leadsOut(const QString& path);

    /// What is odd about the name of the file at \p path, which an extension has built: empty parts
    /// between hyphens, characters that names of packages do not have, further folders.
    QStringList oddities(const QString& path) const;

    /// Whether the file at \p file, an absolute path, is one of the design's or its description,
    /// by this name or by another one through links.
    bool isOfDesign(const QString& file) const;

private:
    /// The absolute path of the folder that the structure has for \p format, with slashes.
    QString folderFor(ArchiveFormat format) const;

    OrvanticCore::Design* m_design;
    QString m_descriptionName;
};

#endif
