#include "plugin/PluginModel.h"

#include "support/MarkingTranslator.h"

namespace {

const char Context[] = "ZORV_Plugin::ZORV_Plugin_Core";

} // namespace

void PluginModel::initialize()
{
    ++starts;
    ++allStarts;
    const char* const calls[] = {
        "register ZORV_Plugin::ZORV_ArchiveConfigExtension \"ZORV_ArchiveConfigExtension\" "
        "in category \"\", no child",
        "register ZORV_Plugin::ZORV_FileTypeExtensions \"ZORV_FileTypeExtensions\" in category "
        "\"\", no child",
        "register ZORV_Plugin::ZORV_PropertyProvider \"\" in category \"\", no child",
        "context qti.def.Context.Standard",
        "menu Tools",
        "command Tools.FcfGenerator \"Pelk FCF Generator\" shortcut \"\" in contexts 4711, no icon",
        "add Pelk FCF Generator before \"\"",
        "add a separator before \"\"",
        "initialize 1"};
    for (unsigned call = 0; call < sizeof calls / sizeof *calls; ++call)
        trace << QLatin1String(calls[call]);
}

void PluginModel::showFcfGenerator()
{
    if (!visible)
        trace << QLatin1String("show");
    trace << QLatin1String("raise");
    // One that is not in front gets the focus when it comes there.
    if (active && !minimized && focus != QLatin1String("PelkFcfGenerator"))
        trace << QLatin1String("focus for another reason");
    hasWindow = visible = active = true;
    minimized = false;
    focus = QLatin1String("PelkFcfGenerator");
}

void PluginModel::deleteInstance()
{
    loaded = false;
    starts = 0;
}

QStringList PluginModel::state() const
{
    QStringList lines;
    if (loaded) {
        const auto shown = [this](const char* text) {
            return marks ? MarkingTranslator::marked(QLatin1String(Context), QLatin1String(text))
                         : QString::fromLatin1(text);
        };
        lines << QLatin1String("ZORV VKT Plugin, ZORV VKT Plugin, category ZORV, version 2.2.0 for "
                               "2.2.0 (1), ZORV, https://zorv.example/, support@zorv.example")
              << shown("Provides custom design archiving functionality in order to prepare "
                       "configuration packages for the HX Config Management system.")
              << shown("Copyright 2026 ZORV") << shown("Released under the MIT licence.")
              << QLatin1String("casts 1 1 1 0 0 1, itself 1 1, no child 1, one slot 1");
    }
    // One image, 16 by 16, of 32 bits, that is the rest of the file.
    lines << QLatin1String("embedded :/icons/radar_icon.ico 1150 "
                           "00000100010010100000010020006804000016000000");
    if (allStarts > 0)
        lines << extensions();
    lines << QString::fromLatin1("windows %1").arg(hasWindow ? 1 : 0);
    if (!hasWindow)
        return lines;
    lines << QString::fromLatin1("visible %1 minimized %2 maximized %3 child 0 deleted on close 0")
                 .arg(visible)
                 .arg(minimized)
                 .arg(maximized);
    lines << QLatin1String("author ") + author;
    if (visible && !minimized)
        lines << QString::fromLatin1("active %1 focus %2").arg(active).arg(focus);
    return lines;
}

QStringList PluginModel::extensions() const
{
    const auto property = [this](const char* name, const char* type, const char* description) {
        const QString text = QLatin1String(description);
        return QString::fromLatin1(
                   "property %1/\"\"/%2 of OrvanticCore::Design 1 0 0 0 1, no value: ")
                   .arg(QLatin1String(name), QLatin1String(type)) +
               (marks ? MarkingTranslator::marked(
                            QLatin1String("ZORV_Plugin::ZORV_PropertyProvider"), text)
                      : text);
    };
    QStringList lines;
    lines << property("ZORV Pelk Device", "QString",
                      "Specifies the device to use when generating FCF files for this "
                      "design.<br><br>Possible values:<br>For DFE1: Interface_FPGA, "
                      "Processing_FPGA_1, Clock_Master_Device<br>For DFE2: Processing_FPGA<br>For "
                      "GPM: Interface_FPGA, Processing_FPGA_1, Processing_FPGA_2, "
                      "Processing_FPGA_3");
    lines << property("ZORV Pelk Config Number", "int",
                      "Specifies the flash location  to use when generating FCF files for this "
                      "design.<br><br>Possible values: 1-10");
    lines << property("ZORV Pelk Module", "QString",
                      "Specifies the module to use when generating FCF files for this "
                      "design.<br><br>Possible values:<br>DFE1, DFE2, GPM");
    lines << QLatin1String("no class is prohibited 1");
    lines << QLatin1String("casts of the archive extension 1 1 1 0 0 1")
          << QLatin1String("casts of the file extensions 1 1 1 0 0 1")
          << QLatin1String("casts of the provider 1 1 1 0 0 1")
          << QLatin1String("methods in order 1")
          << QLatin1String("default of each other extension of views 1");
    return lines;
}
