#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QMenu>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

QList<QAction*> actionsOf(const QList<QAction*>& actions, const QList<QMenu*>& menus)
{
    QList<QAction*> all = actions;
    for (const QMenu* menu : menus)
        all << menu->menuAction();
    return all;
}

} // namespace

QList<IDesignViewExtensions*> ViewExtensions::all()
{
    QList<IDesignViewExtensions*> extensions;
    const QList<QObject*> objects = QtilitiesApplication::objectManager()->registeredInterfaces(
        qobject_interface_iid<IDesignViewExtensions*>());
    for (QObject* object : objects)
        extensions << qobject_cast<IDesignViewExtensions*>(object);
    return extensions;
}

void ViewExtensions::refresh(const Design& design)
{
    for (IDesignViewExtensions* extension : all())
        extension->refreshForDesignState(design.isLocked(), design.isReadOnly());
}

QList<QAction*> ViewExtensions::actions(Place place, DesignFile* file, Design* design,
                                        const QString& context)
{
    QList<QAction*> actions;
    for (IDesignViewExtensions* extension : all()) {
        if (file && place == Menu)
            actions << actionsOf(extension->contextMenuActions(file, context),
                                 extension->contextMenus(file, context));
        else if (file)
            actions << actionsOf(extension->toolBarActions(file, context),
                                 extension->toolBarMenus(file, context));
        else if (place == Menu)
            actions << actionsOf(extension->designContextMenuActions(design, context),
                                 extension->designContextMenus(design, context));
        else
            actions << actionsOf(extension->designToolBarActions(design, context),
                                 extension->designToolBarMenus(design, context));
    }

    // The extensions may have made new actions, which do not know the lock states yet.
    refresh(*design);
    return actions;
}
