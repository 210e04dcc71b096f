#ifndef QTILITIESCOREGUI_TREENODE_H
#define QTILITIESCOREGUI_TREENODE_H

#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesCoreGui/AbstractTreeItem.h>

#include <QList>
#include <QObject>

namespace Qtilities {
namespace CoreGui {

class TreeItemBase;

/// A node of a tree: it has further nodes and leaves under it. Owned, but not as children in the
/// sense of QObject.
///
/// Many changes in a row are made in a processing cycle, so that views follow them only once.
class QTILITIES_SHARED_EXPORT TreeNode : public QObject, public AbstractTreeItem {
    Q_OBJECT

public:
    explicit TreeNode(const QString& name = QString(), QObject* parent = nullptr);
    ~TreeNode() override;

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    /// Adds a new node and returns it. Owned.
    TreeNode* addNode(const QString& name);

    /// Adds \p item, which leaves the node that has had it, if any. Owned. Returns false, and does
    /// nothing, for null and for an item that is in this node already.
    bool addItem(TreeItemBase* item);

    /// Nodes and leaves directly under this node, in the order in which they were added.
    int subjectCount() const;

    /// Null for an \p index that is not from 0 to subjectCount() - 1.
    QObject* subjectAt(int index) const;

    /// Cycles nest; each start asks for an end.
    void startProcessingCycle();

    /// The end of the outermost cycle announces what has changed since its start, unless
    /// \p broadcast is false: then those changes are never announced. Ignored without a cycle.
    void endProcessingCycle(bool broadcast = true);
    bool isProcessingCycleActive() const;

Q_SIGNALS:
    /// Items were added or removed, here or in a node below. While a processing cycle runs it is
    /// held back, and comes once for all changes.
    void layoutChanged();

    /// The outermost processing cycle has ended. Its changes have been announced if \p broadcast;
    /// otherwise no listener may announce what it has noted since the start.
    void processingCycleEnded(bool broadcast);

private Q_SLOTS:
    void noteChange();
    void forgetSubject(QObject* subject);

private:
    Q_DISABLE_COPY(TreeNode)

    void addSubject(QObject* subject, AbstractTreeItem* item);

    QList<QObject*> m_subjects;
    int m_cycles;
    bool m_changed;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
