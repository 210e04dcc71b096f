#include <TreeNode.h>

#include <TreeItemBase.h>

namespace Qtilities {
namespace CoreGui {

TreeNode::TreeNode(const QString& name, QObject* parent)
    : QObject(parent), d_cycles(0), d_changed(false)
{
    setObjectName(name);
}

TreeNode::~TreeNode()
{
    // Subjects are deleted after this; they must not be announced by what is no node any more.
    foreach (QObject* subject, d_subjects)
        disconnect(subject, 0, this, 0);
}

TreeNode* TreeNode::addNode(const QString& name)
{
    TreeNode* const node = new TreeNode(name);
    connect(node, SIGNAL(layoutChanged()), this, SLOT(noteChange()));
    addSubject(node);
    return node;
}

bool TreeNode::addItem(TreeItemBase* item)
{
    if (!item || d_subjects.contains(item))
        return false;
    if (TreeNode* const former = qobject_cast<TreeNode*>(item->parent())) {
        disconnect(item, 0, former, 0);
        former->forgetSubject(item);
    }
    addSubject(item);
    return true;
}

void TreeNode::addSubject(QObject* subject)
{
    subject->setParent(this);
    connect(subject, SIGNAL(destroyed(QObject*)), this, SLOT(forgetSubject(QObject*)));
    d_subjects.append(subject);
    noteChange();
}

int TreeNode::subjectCount() const { return d_subjects.count(); }

QObject* TreeNode::subjectAt(int index) const { return d_subjects.value(index, 0); }

void TreeNode::startProcessingCycle() { ++d_cycles; }

void TreeNode::endProcessingCycle(bool broadcast)
{
    if (d_cycles == 0 || --d_cycles > 0)
        return;
    const bool changed = d_changed;
    d_changed = false;
    if (changed && broadcast)
        emit layoutChanged();
    emit processingCycleEnded();
}

bool TreeNode::isProcessingCycleActive() const { return d_cycles > 0; }

void TreeNode::noteChange()
{
    if (isProcessingCycleActive())
        d_changed = true;
    else
        emit layoutChanged();
}

void TreeNode::forgetSubject(QObject* subject)
{
    d_subjects.removeOne(subject);
    noteChange();
}

} // namespace CoreGui
} // namespace Qtilities
