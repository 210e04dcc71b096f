#ifndef FRAMEWORK_TREEITEMBASE_H
#define FRAMEWORK_TREEITEMBASE_H

#include <AbstractTreeItem.h>

namespace Qtilities {
namespace CoreGui {

class QTILITIES_CORE_EXPORT TreeItemBase : public QObject, public AbstractTreeItem {
    Q_OBJECT

public:
    explicit TreeItemBase(const QString& name = QString(), QObject* parent = nullptr);
    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

private:
    QString m_formerName;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
