#ifndef FRAMEWORK_TREENODE_H
#define FRAMEWORK_TREENODE_H

#include <AbstractTreeItem.h>
#include <TreeItemBase.h>

#include <QList>

namespace Qtilities {
namespace CoreGui {

class QTILITIES_CORE_EXPORT TreeNode : public QObject, public AbstractTreeItem {
    Q_OBJECT

public:
    explicit TreeNode(const QString& name = QString(), QObject* parent = nullptr);
    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }
    TreeNode* addNode(const QString& name);
    bool addItem(TreeItemBase* item);
    int subjectCount() const { return children().count(); }
    QObject* subjectAt(int index) const { return children().value(index); }
    void startProcessingCycle() { ++m_cycles; }
    void endProcessingCycle(bool broadcast = true);
    bool isProcessingCycleActive() const { return m_cycles > 0; }

Q_SIGNALS:
    void layoutChanged(const QList<QObject*>& new_selection = QList<QObject*>());
    void processingCycleEnded(bool broadcast);

private:
    QString m_accessMode;
    int m_cycles;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
