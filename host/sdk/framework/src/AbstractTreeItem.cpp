#include <QtilitiesCoreGui/AbstractTreeItem.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QStringList>

namespace Qtilities {
namespace CoreGui {

AbstractTreeItem::AbstractTreeItem() : m_node(nullptr) {}

AbstractTreeItem::~AbstractTreeItem() {}

QString AbstractTreeItem::getName(TreeNode* parent) const
{
    Q_UNUSED(parent)
    return objectBase()->objectName();
}

QString AbstractTreeItem::getCategoryString(const QString& separator, int observer_id) const
{
    Q_UNUSED(observer_id)
    QStringList names;
    // The root has no node above it, and is left out.
    for (const TreeNode* node = m_node; node && node->m_node; node = node->m_node)
        names.prepend(node->objectName());
    return names.join(separator);
}

} // namespace CoreGui
} // namespace Qtilities
