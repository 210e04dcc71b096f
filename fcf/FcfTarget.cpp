#include "FcfTarget.h"

QStringList FcfTarget::modules()
{
    return QStringList() << QLatin1String("DFE") << QLatin1String("DFE2") << QLatin1String("GPM");
}

QStringList FcfTarget::devicesOf(const QString& module)
{
    QStringList devices;
    if (module == QLatin1String("DFE"))
        devices << QLatin1String("Interface_FPGA") << QLatin1String("Processing_FPGA_1")
                << QLatin1String("Clock_Master_Device");
    else if (module == QLatin1String("DFE2"))
        devices << QLatin1String("Processing_FPGA");
    else if (module == QLatin1String("GPM"))
        devices << QLatin1String("Interface_FPGA") << QLatin1String("Processing_FPGA_1")
                << QLatin1String("Processing_FPGA_2") << QLatin1String("Processing_FPGA_3");
    return devices;
}

qint32 FcfTarget::moduleCode(const QString& module)
{
    return module == QLatin1String("DFE") ? 1 : 2;
}

qint32 FcfTarget::deviceCode(const QString& module, const QString& device, qint32 without)
{
    if (device == QLatin1String("Interface_FPGA"))
        return 1;
    if (device == QLatin1String("Processing_FPGA_1"))
        return 2;
    if (device == QLatin1String("Processing_FPGA_3"))
        return 8;
    const bool gpm = module == QLatin1String("GPM");
    if (device == QLatin1String(gpm ? "Processing_FPGA_2" : "Clock_Master_Device"))
        return 4;
    return without;
}

bool FcfTarget::find(qint32 moduleCodeSought, qint32 deviceCodeSought, Target* target)
{
    foreach (const QString& module, modules()) {
        if (moduleCode(module) != moduleCodeSought)
            continue;
        foreach (const QString& device, devicesOf(module)) {
            if (deviceCode(module, device, 0) != deviceCodeSought)
                continue;
            target->module = module;
            target->device = device;
            return true;
        }
    }
    return false;
}
