#include "host/app/DesignFilters.h"

#include "host/app/DesignModel.h"
#include "host/app/DesignRows.h"
#include "host/app/DesignView.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QMenu>

using OrvanticCore::AbstractDesignLinkedItem;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::TreeNode;

namespace {

QStringList filtersOf(IDesignViewExtensions* extension)
{
    return extension->designItemFilters() + extension->designFileNodeFilters();
}

} // namespace

DesignFilters::DesignFilters(DesignModel* model, DesignView* view, QMenu* menu)
    : QObject(view), m_model(model), m_view(view), m_menu(menu)
{
    connect(menu, &QMenu::aboutToShow, this, &DesignFilters::fillMenu);
    connect(model, &DesignModel::rebuilt, this, &DesignFilters::apply);
    connect(model, &DesignModel::rowsInserted, this, &DesignFilters::apply, Qt::QueuedConnection);
}

void DesignFilters::fillMenu()
{
    m_menu->clear();
    for (IDesignViewExtensions* extension : ViewExtensions::all()) {
        for (const QString& filter : filtersOf(extension)) {
            QAction* const action = m_menu->addAction(filter);
            action->setCheckable(true);
            action->setChecked(isOn(filter));
            action->setToolTip(extension->filterDescription(filter));
            connect(action, &QAction::toggled, this, [this, filter](bool on) {
                m_switched[filter] = on;
                apply();
            });
        }
    }
    if (m_menu->isEmpty())
        m_menu->addAction(tr("No extension has filters"))->setEnabled(false);
}

bool DesignFilters::isOn(const QString& filter) const
{
    if (m_switched.contains(filter))
        return m_switched[filter];
    for (IDesignViewExtensions* extension : ViewExtensions::all()) {
        if (filtersOf(extension).contains(filter))
            return extension->defaultFilterState(filter);
    }
    return false;
}

void DesignFilters::apply()
{
    // Without filters, rows are left to the view.
    for (IDesignViewExtensions* extension : ViewExtensions::all()) {
        if (!filtersOf(extension).isEmpty()) {
            applyBelow(QModelIndex());
            return;
        }
    }
}

void DesignFilters::applyBelow(const QModelIndex& parent)
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex index = m_model->index(row, DesignModel::NameColumn, parent);
        m_view->setRowHidden(row, parent, isHidden(index));
        applyBelow(index);
    }
}

bool DesignFilters::isHidden(const QModelIndex& index) const
{
    AbstractDesignLinkedItem* item = m_model->fileAt(index);
    if (!item)
        item = m_model->folderAt(index);
    TreeNode* node = nullptr;
    if (m_model->isNode(index) && m_model->designAt(index)->structure())
        node = dynamic_cast<TreeNode*>(m_model->designAt(index)->structure()->designNodeWithName(
            m_model->nodeAt(index), true));
    for (IDesignViewExtensions* extension : ViewExtensions::all()) {
        for (const QString& filter : extension->designItemFilters()) {
            if (item && isOn(filter) && extension->filterLinkedItem(item, filter))
                return true;
        }
        for (const QString& filter : extension->designFileNodeFilters()) {
            if (node && isOn(filter) && extension->filterDesignFileNode(node, filter))
                return true;
        }
    }
    return false;
}
