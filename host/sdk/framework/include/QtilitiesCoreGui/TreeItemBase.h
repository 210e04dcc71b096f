#ifndef QTILITIESCOREGUI_TREEITEMBASE_H
#define QTILITIESCOREGUI_TREEITEMBASE_H

#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesCoreGui/AbstractTreeItem.h>

#include <QObject>

namespace Qtilities {
namespace CoreGui {

/// A leaf of a tree. Its object name is the item's name. Once added to a node it is that node's,
/// and leaves the node when it is deleted.
class QTILITIES_SHARED_EXPORT TreeItemBase : public QObject, public AbstractTreeItem {
    Q_OBJECT

public:
    explicit TreeItemBase(const QString& name = QString(), QObject* parent = nullptr);
    ~TreeItemBase() override;

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }
};

} // namespace CoreGui
} // namespace Qtilities

#endif
