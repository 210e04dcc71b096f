#include <OrvanticCore/DesignStructure.h>

namespace OrvanticCore {

using Qtilities::CoreGui::AbstractTreeItem;
using Qtilities::CoreGui::TreeNode;

namespace {

QList<TreeNode*> nodesUnder(const TreeNode* node)
{
    QList<TreeNode*> nodes;
    for (int index = 0; index < node->subjectCount(); ++index) {
        if (TreeNode* const below = qobject_cast<TreeNode*>(node->subjectAt(index)))
            nodes.append(below);
    }
    return nodes;
}

} // namespace

DesignStructure::DesignStructure() : m_root(new TreeNode) {}

DesignStructure::~DesignStructure()
{
    qDeleteAll(m_associations);
    delete m_root;
}

FileAssociation* DesignStructure::mapFileNameToAssociation(const QString& pattern) const
{
    foreach (FileAssociation* association, m_associations) {
        if (association->pattern() == pattern)
            return association;
    }
    foreach (FileAssociation* association, m_associations) {
        if (association->matches(pattern))
            return association;
    }
    return nullptr;
}

QString DesignStructure::unassignedFileAssociationsNode() const { return m_unassignedNode; }

AbstractTreeItem* DesignStructure::designNodeWithName(const QString& name, bool recursive) const
{
    if (name.isEmpty())
        return nullptr;
    QList<TreeNode*> level = nodesUnder(m_root);
    while (!level.isEmpty()) {
        QList<TreeNode*> below;
        foreach (TreeNode* node, level) {
            if (node->getName() == name)
                return node;
            below += nodesUnder(node);
        }
        level = recursive ? below : QList<TreeNode*>();
    }
    return nullptr;
}

QString DesignStructure::mapFileNameToWorkingFolderPath(const QString& file_name,
                                                        const QString& design_node,
                                                        const QString& default_path) const
{
    const FileAssociation* const best = mapFileNameToAssociation(file_name);
    QList<FileAssociation*> candidates = m_associations;
    if (best)
        candidates.prepend(const_cast<FileAssociation*>(best));
    foreach (const FileAssociation* association, candidates) {
        if (association->matches(file_name) && !association->workingFolderPath().isEmpty() &&
            (design_node.isEmpty() || association->designNode() == design_node))
            return association->workingFolderPath();
    }
    return default_path;
}

TreeNode* DesignStructure::rootNode() const { return m_root; }

void DesignStructure::addFileAssociation(const QString& pattern, const QString& design_node,
                                         const QString& working_folder)
{
    m_associations.append(new FileAssociation(pattern, design_node, working_folder));
}

QList<FileAssociation*> DesignStructure::fileAssociations() const { return m_associations; }

void DesignStructure::setUnassignedFileAssociationsNode(const QString& name)
{
    m_unassignedNode = name;
}

} // namespace OrvanticCore
