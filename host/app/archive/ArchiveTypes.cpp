#include "host/app/archive/ArchiveTypes.h"

#include <OrvanticCore/IDesign.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include <QCoreApplication>

using OrvanticCore::IDesign;
using OrvanticCore::Interfaces::ILinkedExtension;
using Qtilities::Core::QtilitiesCoreApplication;

namespace {

bool admits(const QStringList& names, bool inversed, const QString& name)
{
    return names.isEmpty() || names.contains(name) != inversed;
}

} // namespace

QString ArchiveType::name() const
{
    return m_plain ? QCoreApplication::translate("ArchiveType", "Plain Archive")
                   : extension()->archiveType();
}

std::vector<ArchiveType> archiveTypesFor(const IDesign* design)
{
    std::vector<ArchiveType> types{ArchiveType()};
    const auto extensions = QtilitiesCoreApplication::objectManager()->registeredInterfaces(
        qobject_interface_iid<ArchiveType::Extension*>());
    for (QObject* object : extensions) {
        const auto* const extension = qobject_cast<ArchiveType::Extension*>(object);
        if (extension && isMeantFor(*extension, design))
            types.emplace_back(object);
    }
    return types;
}

bool isMeantFor(const ILinkedExtension& extension, const IDesign* design)
{
    return admits(extension.designTypeNames(), extension.isDesignTypeNamesInversed(),
                  design ? design->typeName() : QString()) &&
           admits(extension.designStructureIDs(), extension.isDesignStructureIDsInversed(),
                  QString()) &&
           admits(extension.designStructureOriginNames(),
                  extension.isDesignStructureOriginNamesInversed(), QString());
}
