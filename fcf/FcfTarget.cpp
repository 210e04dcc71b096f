#include "fcf/FcfTarget.h"

namespace FcfTarget {

const Target Targets[TargetCount] = {
    {"DFE", 1, "Interface_FPGA", 1},      {"DFE", 1, "Processing_FPGA_1", 2},
    {"DFE", 1, "Clock_Master_Device", 4}, {"DFE2", 2, "Processing_FPGA", NoCode},
    {"GPM", 2, "Interface_FPGA", 1},      {"GPM", 2, "Processing_FPGA_1", 2},
    {"GPM", 2, "Processing_FPGA_2", 4},   {"GPM", 2, "Processing_FPGA_3", 8},
};

} // namespace FcfTarget

namespace {

const qint32 CodeOfOtherModules = 2;

/// Means Processing_FPGA_2 on a GPM and Clock_Master_Device on any other module. Every other code
/// is of one device, whatever the module.
const qint32 SharedDeviceCode = 4;

bool isGpm(const QString& module) { return module == QLatin1String("GPM"); }

} // namespace

QStringList FcfTarget::modules()
{
    QStringList modules;
    for (const Target& target : Targets) {
        if (!modules.contains(QLatin1String(target.module)))
            modules << QLatin1String(target.module);
    }
    return modules;
}

QStringList FcfTarget::devicesOf(const QString& module)
{
    QStringList devices;
    for (const Target& target : Targets) {
        if (module == QLatin1String(target.module))
            devices << QLatin1String(target.device);
    }
    return devices;
}

qint32 FcfTarget::moduleCode(const QString& module)
{
    for (const Target& target : Targets) {
        if (module == QLatin1String(target.module))
            return target.moduleCode;
    }
    return CodeOfOtherModules;
}

qint32 FcfTarget::deviceCode(const QString& module, const QString& device, qint32 without)
{
    for (const Target& target : Targets) {
        const bool fits = target.deviceCode != SharedDeviceCode ||
                          isGpm(module) == isGpm(QLatin1String(target.module));
        if (device == QLatin1String(target.device) && target.deviceCode != NoCode && fits)
            return target.deviceCode;
    }
    return without;
}

const FcfTarget::Target* FcfTarget::find(qint32 moduleCode, qint32 deviceCode)
{
    for (const Target& target : Targets) {
        if (target.moduleCode == moduleCode && target.deviceCode == deviceCode)
            return &target;
    }
    return nullptr;
}
