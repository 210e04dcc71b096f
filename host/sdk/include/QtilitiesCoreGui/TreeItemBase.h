#ifndef QTILITIESCOREGUI_TREEITEMBASE_H
#define QTILITIESCOREGUI_TREEITEMBASE_H

#include <AbstractTreeItem.h>
#include <QtilitiesGlobal.h>

#include <QObject>

namespace Qtilities {
namespace CoreGui {

/// A leaf of a tree. Its object name is the item's name. Once added to a node it is that node's,
/// and leaves the node when it is deleted.
class QTILITIES_SHARED_EXPORT TreeItemBase : public QObject, public AbstractTreeItem {
    Q_OBJECT

public:
    explicit TreeItemBase(const QString& name = QString(), QObject* parent = 0);
    ~TreeItemBase();

    QObject* objectBase() { return this; }
    const QObject* objectBase() const { return this; }
};

} // namespace CoreGui
} // namespace Qtilities

#endif
