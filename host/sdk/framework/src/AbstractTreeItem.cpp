#include <QtilitiesCoreGui/AbstractTreeItem.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QStringList>

namespace Qtilities {
namespace CoreGui {

AbstractTreeItem::AbstractTreeItem() {}

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
    const TreeNode* node = qobject_cast<const TreeNode*>(objectBase()->parent());
    while (node) {
        const TreeNode* const above = qobject_cast<const TreeNode*>(node->parent());
        if (above)
            names.prepend(node->objectName());
        node = above;
    }
    return names.join(separator);
}

} // namespace CoreGui
} // namespace Qtilities
