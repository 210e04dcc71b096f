#include "host/app/archive/ArchiveExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>

using OrvanticCore::Design;
using OrvanticCore::Interfaces::IDesignArchiveExtension;
using Qtilities::Core::QtilitiesCoreApplication;

namespace {

bool admits(const QStringList& names, bool inversed, const QString& name)
{
    return names.isEmpty() || names.contains(name) != inversed;
}

} // namespace

QList<QObject*> archiveExtensionsFor(const Design* design)
{
    const QString type = design ? design->typeName() : QString();
    QList<QObject*> meant;
    for (QObject* object : QtilitiesCoreApplication::objectManager()->registeredInterfaces(
             qobject_interface_iid<IDesignArchiveExtension*>())) {
        const auto* const extension = qobject_cast<IDesignArchiveExtension*>(object);
        if (extension &&
            admits(extension->designTypeNames(), extension->isDesignTypeNamesInversed(), type) &&
            admits(extension->designStructureIDs(), extension->isDesignStructureIDsInversed(),
                   QString()) &&
            admits(extension->designStructureOriginNames(),
                   extension->isDesignStructureOriginNamesInversed(), QString()))
            meant << object;
    }
    return meant;
}
