#include "host/app/ItemActions.h"

#include "host/app/DesignModel.h"
#include "host/app/DesignView.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesLogging/Logger.h>

#include <QMenu>
#include <QToolBar>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using Qtilities::Logging::Logger;

ItemActions::ItemActions(DesignModel* model, DesignView* view, QMenu* menu, QToolBar* toolBar)
    : QObject(view), m_model(model), m_view(view), m_menu(menu), m_toolBar(toolBar),
      m_separator(menu->addSeparator())
{
    connect(view, &DesignView::currentItemChanged, this, &ItemActions::refresh);
    // A context menu asks the extensions too, and may be for another item.
    connect(view, &DesignView::menuShown, this, &ItemActions::refresh);
}

void ItemActions::refresh()
{
    QList<QAction*> actions;
    QList<QAction*> onToolBar;
    DesignFile* const file = m_model->fileAt(m_view->currentIndex());
    Design* const design = m_view->currentDesign();
    if (design && !m_model->folderAt(m_view->currentIndex())) {
        actions = ViewExtensions::menuActions(file, design, m_view->objectName());
        onToolBar = actions + ViewExtensions::toolBarActions(file, design, m_view->objectName());
    }
    show(actions, onToolBar);
    m_ofFile.clear();
    for (QAction* action : actions) {
        if (file)
            m_ofFile << action;
        connect(action, &QAction::triggered, this, &ItemActions::logWhyNothingIsFilledIn,
                Qt::UniqueConnection);
    }
}

void ItemActions::show(const QList<QAction*>& actions, const QList<QAction*>& onToolBar)
{
    for (const QPointer<QAction>& action : m_shown) {
        m_menu->removeAction(action);
        m_toolBar->removeAction(action);
    }
    m_shown.clear();
    m_menu->addActions(actions);
    m_toolBar->addActions(onToolBar);
    for (QAction* action : onToolBar)
        m_shown << action;
    m_separator->setVisible(!actions.isEmpty());
}

bool ItemActions::triggerFirst()
{
    if (m_ofFile.isEmpty() || !m_ofFile.constFirst())
        return false;
    m_ofFile.constFirst()->trigger();
    return true;
}

void ItemActions::logWhyNothingIsFilledIn()
{
    const int designs = DesignManager::instance()->designs().count();
    if (designs == 1)
        return;
    const auto* const action = qobject_cast<QAction*>(sender());
    Logger::instance()->logPriorityMessage(
        QString(), Logger::Info,
        tr("\"%1\" fills in nothing from a design, and adds no files to one: %2 designs are open. "
           "Close all but one for that.")
            .arg(action->text().remove('&'), QString::number(designs)));
}
