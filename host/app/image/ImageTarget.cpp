#include "host/app/image/ImageTarget.h"

#include "fcf/FcfHeader.h"
#include "fcf/FcfTarget.h"

#include <OrvanticCore/Design.h>

#include <QCoreApplication>

using OrvanticCore::Design;

namespace {

struct ImageTargetTexts {
    Q_DECLARE_TR_FUNCTIONS(ImageTarget)
};

bool isSlot(int number) { return number >= FcfTarget::FirstSlot && number <= FcfTarget::LastSlot; }

} // namespace

const char ImageTarget::ModuleProperty[] = "ZORV Pelk Module";
const char ImageTarget::DeviceProperty[] = "ZORV Pelk Device";
const char ImageTarget::SlotProperty[] = "ZORV Pelk Config Number";

ImageTarget ImageTarget::of(const Design& design)
{
    const QString module = design.designProperty(ModuleProperty).toString();
    const QString device = design.designProperty(DeviceProperty).toString();
    const int slot = design.designProperty(SlotProperty).toInt();

    ImageTarget target;
    if (FcfTarget::modules().contains(module))
        target.module = module;
    if (FcfTarget::devicesOf(target.module).contains(device))
        target.device = device;
    if (isSlot(slot))
        target.slot = slot;
    return target;
}

ImageTarget ImageTarget::of(const FcfHeader& header)
{
    ImageTarget target;
    if (const auto* const found = FcfTarget::find(header.moduleCode, header.deviceCode)) {
        target.module = found->module;
        target.device = found->device;
    }
    if (isSlot(header.configNumber))
        target.slot = header.configNumber;
    return target;
}

ImageTarget ImageTarget::completedBy(const ImageTarget& other) const
{
    ImageTarget whole = *this;
    if (whole.module.isEmpty())
        whole.module = other.module;
    if (whole.device.isEmpty() && FcfTarget::devicesOf(whole.module).contains(other.device))
        whole.device = other.device;
    if (whole.slot == 0)
        whole.slot = other.slot;
    return whole;
}

QString ImageTarget::text() const
{
    return ImageTargetTexts::tr("%1, %2, slot %3").arg(module, device, QString::number(slot));
}
