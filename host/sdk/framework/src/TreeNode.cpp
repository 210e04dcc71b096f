#include <QtilitiesCoreGui/TreeNode.h>

#include <QtilitiesCoreGui/TreeItemBase.h>

namespace Qtilities {
namespace CoreGui {

TreeNode::TreeNode(const QString& name, QObject* parent)
    : QObject(parent), m_cycles(0), m_changed(false)
{
    setObjectName(name);
}

TreeNode::~TreeNode()
{
    // What is no node any more announces nothing.
    blockSignals(true);
    while (!m_subjects.isEmpty())
        delete m_subjects.takeFirst();
    blockSignals(false);
}

TreeNode* TreeNode::addNode(const QString& name)
{
    TreeNode* const node = new TreeNode(name);
    connect(node, SIGNAL(layoutChanged()), this, SLOT(noteChange()));
    addSubject(node, node);
    return node;
}

bool TreeNode::addItem(TreeItemBase* item)
{
    if (!item || item->m_node == this)
        return false;

    if (TreeNode* const former = item->m_node) {
        disconnect(item, nullptr, former, nullptr);
        former->forgetSubject(item);
    }
    addSubject(item, item);
    return true;
}

void TreeNode::addSubject(QObject* subject, AbstractTreeItem* item)
{
    item->m_node = this;
    connect(subject, SIGNAL(destroyed(QObject*)), this, SLOT(forgetSubject(QObject*)));
    m_subjects.append(subject);
    noteChange();
}

int TreeNode::subjectCount() const { return static_cast<int>(m_subjects.count()); }

QObject* TreeNode::subjectAt(int index) const { return m_subjects.value(index, 0); }

void TreeNode::startProcessingCycle() { ++m_cycles; }

void TreeNode::endProcessingCycle(bool broadcast)
{
    if (m_cycles == 0 || --m_cycles > 0)
        return;
    const bool changed = m_changed;
    m_changed = false;
    if (changed && broadcast)
        emit layoutChanged();
    emit processingCycleEnded(broadcast);
}

bool TreeNode::isProcessingCycleActive() const { return m_cycles > 0; }

void TreeNode::noteChange()
{
    if (isProcessingCycleActive())
        m_changed = true;
    else
        emit layoutChanged();
}

void TreeNode::forgetSubject(QObject* subject)
{
    m_subjects.removeOne(subject);
    noteChange();
}

} // namespace CoreGui
} // namespace Qtilities
