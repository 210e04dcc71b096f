#ifndef ORVANTICCORE_DESIGNSTRUCTURE_H
#define ORVANTICCORE_DESIGNSTRUCTURE_H

#include <OrvanticCore/FileAssociation.h>
#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QList>
#include <QString>

namespace OrvanticCore {

/// The nodes by which a design orders its files, and the rules by which a file belongs to
/// which. Owned by its design. What it returns is not owned by the caller.
class ORVANTICCORE_SHARED_EXPORT DesignStructure {
public:
    DesignStructure();
    ~DesignStructure();

    /// The association for a file name or a pattern: the one with exactly that pattern, else the
    /// first one that matches. Null when there is none.
    FileAssociation* mapFileNameToAssociation(const QString& pattern) const;

    /// The name of the node for files without an association.
    QString unassignedFileAssociationsNode() const;

    /// The first node with that name among the outermost ones, or, if \p recursive, among all; the
    /// outer ones come first. Null when there is none and for an empty name.
    Qtilities::CoreGui::AbstractTreeItem* designNodeWithName(const QString& name,
                                                             bool recursive) const;

    /// The folder in which files of that name lie, relative to the design's working folder. Only
    /// associations with \p design_node count, unless it is empty. \p default_path is returned
    /// when none maps the name to a folder.
    QString mapFileNameToWorkingFolderPath(const QString& file_name, const QString& design_node,
                                           const QString& default_path) const;

    /// The node above all others, which has no name and is not shown. The host adds to it.
    Qtilities::CoreGui::TreeNode* rootNode() const;

    /// Adds a rule behind those that are there already.
    void addFileAssociation(const QString& pattern, const QString& design_node,
                            const QString& working_folder = QString());
    QList<FileAssociation*> fileAssociations() const;
    void setUnassignedFileAssociationsNode(const QString& name);

private:
    Q_DISABLE_COPY(DesignStructure)

    Qtilities::CoreGui::TreeNode* m_root;
    QList<FileAssociation*> m_associations;
    QString m_unassignedNode;
};

} // namespace OrvanticCore

#endif
