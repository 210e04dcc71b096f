#ifndef ORVANTICCORE_FILEASSOCIATION_H
#define ORVANTICCORE_FILEASSOCIATION_H

#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QString>

namespace OrvanticCore {

/// Where a design keeps the files of one kind. Owned by its DesignStructure; never changes.
class ORVANTICCORE_SHARED_EXPORT FileAssociation {
public:
    /// \p pattern is a file name with wildcards. An empty \p design_node leaves the files to the
    /// structure's node for unassigned ones; an empty \p working_folder to the design's folder.
    FileAssociation(const QString& pattern, const QString& design_node,
                    const QString& working_folder = QString());

    QString pattern() const;

    /// The name of the structure's node under which the files are shown.
    QString designNode() const;

    /// The folder in which the files lie, relative to the design's working folder.
    QString workingFolderPath() const;

    /// Whether \p file_name is the pattern itself or matches it; case makes no difference.
    bool matches(const QString& file_name) const;

private:
    QString m_pattern;
    QString m_designNode;
    QString m_workingFolder;
};

} // namespace OrvanticCore

#endif
