#include "host/app/PropertyCatalog.h"

#include "fcf/FcfTarget.h"

#include <OrvanticCore/Design.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QSet>

using OrvanticCore::Design;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::CoreGui::QtilitiesApplication;

QList<PropertySpecification> PropertyCatalog::availableFor(const QObject* object)
{
    const QList<QObject*> providers = QtilitiesApplication::objectManager()->registeredInterfaces(
        qobject_interface_iid<IAvailablePropertyProvider*>());
    QList<PropertySpecification> available;
    QSet<QString> names;
    for (QObject* provider : providers) {
        const auto* const interface = qobject_cast<IAvailablePropertyProvider*>(provider);
        for (const PropertySpecification& property : interface->availableProperties()) {
            if (!property.isValid() || property.d_internal ||
                !object->inherits(property.d_class_name.toLatin1().constData()) ||
                names.contains(property.propertyName()))
                continue;
            names << property.propertyName();
            available << property;
        }
    }
    return available;
}

PropertySpecification PropertyCatalog::find(const QObject* object, const QString& name)
{
    for (const PropertySpecification& property : availableFor(object)) {
        if (property.propertyName() == name)
            return property;
    }
    return PropertySpecification();
}

QStringList PropertyCatalog::choices(const Design& design, const QString& property)
{
    const char moduleProperty[] = "ZORV Pelk Module";
    QStringList values;
    if (property == moduleProperty)
        values = FcfTarget::modules();
    if (property == "ZORV Pelk Device") {
        values = FcfTarget::devicesOf(design.designProperty(moduleProperty).toString());
        for (const QString& module : values.isEmpty() ? FcfTarget::modules() : QStringList())
            values << FcfTarget::devicesOf(module);
        values.removeDuplicates();
    }
    if (property == "ZORV Pelk Config Number") {
        for (int number = FcfTarget::FirstSlot; number <= FcfTarget::LastSlot; ++number)
            values << QString::number(number);
    }
    return values;
}
