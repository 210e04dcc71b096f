#ifndef QTILITIESCOREGUI_ABSTRACTTREEITEM_H
#define QTILITIESCOREGUI_ABSTRACTTREEITEM_H

#include <QtilitiesCore/IObjectBase.h>
#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QString>

namespace Qtilities {
namespace CoreGui {

class TreeNode;

/// What the nodes and the leaves of a tree have in common.
class QTILITIES_SHARED_EXPORT AbstractTreeItem : virtual public Core::Interfaces::IObjectBase {
public:
    AbstractTreeItem();
    ~AbstractTreeItem() override;

    /// The name of the item, the same under every \p parent.
    QString getName(TreeNode* parent = nullptr) const;

    /// The names of the nodes between the root of the tree and the item, outermost first, neither
    /// of the two included. An item has one parent, so that \p observer_id makes no difference.
    virtual QString getCategoryString(const QString& separator = QLatin1String("::"),
                                      int observer_id = -1) const;

private:
    friend class TreeNode;

    /// The node that has the item, or null. Not owned.
    TreeNode* m_node;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
