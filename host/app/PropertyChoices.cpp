#include "host/app/PropertyChoices.h"

#include "fcf/FcfTarget.h"

#include <OrvanticCore/Design.h>

#include <QCoreApplication>

using OrvanticCore::Design;

namespace {

const char ModuleProperty[] = "ZORV Pelk Module";
const char DeviceProperty[] = "ZORV Pelk Device";
const char SlotProperty[] = "ZORV Pelk Config Number";

QString tr(const char* text) { return QCoreApplication::translate("PropertyChoices", text); }

QStringList allDevices()
{
    QStringList devices;
    for (const QString& module : FcfTarget::modules())
        devices << FcfTarget::devicesOf(module);
    devices.removeDuplicates();
    return devices;
}

} // namespace

QStringList PropertyChoices::valuesOf(const Design& design, const QString& property)
{
    if (property == ModuleProperty)
        return FcfTarget::modules();
    if (property == DeviceProperty) {
        const QStringList devices =
            FcfTarget::devicesOf(design.designProperty(ModuleProperty).toString());
        return devices.isEmpty() ? allDevices() : devices;
    }
    QStringList numbers;
    if (property == SlotProperty) {
        for (int number = FcfTarget::FirstSlot; number <= FcfTarget::LastSlot; ++number)
            numbers << QString::number(number);
    }
    return numbers;
}

QString PropertyChoices::warning(const Design& design, const QString& property,
                                 const QVariant& value)
{
    const QStringList known = valuesOf(design, property);
    if (known.isEmpty() || !value.isValid() || known.contains(value.toString()))
        return QString();
    const QString module = design.designProperty(ModuleProperty).toString();
    if (property == DeviceProperty && FcfTarget::modules().contains(module))
        return tr("\"%1\" is no device of module %2: the generator keeps its own selection. "
                  "Known: %3.")
            .arg(value.toString(), module, known.join(", "));
    return tr("The generator does not know \"%1\" and keeps its own selection. Known: %2.")
        .arg(value.toString(), known.join(", "));
}
