#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::QtilitiesApplication;

QList<IDesignViewExtensions*> ViewExtensions::all()
{
    QList<IDesignViewExtensions*> extensions;
    const QList<QObject*> objects = QtilitiesApplication::objectManager()->registeredInterfaces(
        qobject_interface_iid<IDesignViewExtensions*>());
    for (QObject* object : objects)
        extensions << qobject_cast<IDesignViewExtensions*>(object);
    return extensions;
}

void ViewExtensions::refresh(const OrvanticCore::Design& design)
{
    for (IDesignViewExtensions* extension : all())
        extension->refreshForDesignState(design.isLocked(), design.isReadOnly());
}
