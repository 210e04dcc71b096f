#include "archive/ArchiveModel.h"

#include "support/MarkingTranslator.h"

#include <QDir>

namespace {

const char Firmware[] = "7010 (Firmware)";
const char Software[] = "7030 (Software)";

QString padded(int number)
{
    const QString text = QString::number(number);
    return text.length() == 1 ? QLatin1Char('0') + text : text;
}

} // namespace

ArchiveModel::ArchiveModel()
    : packageType(-1), designType(-1), sequence(1), major(0), minor(0), dialog(-1), settings(0),
      marked(false), marks(false)
{
}

void ArchiveModel::make()
{
    marked = marks;
    packageTypes = QStringList() << QLatin1String(Firmware) << QLatin1String(Software);
    designTypes.clear();
    designType = -1;
    projectCm = QLatin1String("GNRL");
    if (marked)
        projectCm =
            MarkingTranslator::marked(QLatin1String("ZORV_ArchiveConfigExtension"), projectCm);
    sequence = 1;
    major = 0;
    minor = 0;
    destination = QString();
    dialog = -1;

    firmware.clear();
    firmware[QLatin1String("Functional Firmware")] = QLatin1String("FUNC");
    firmware[QLatin1String("Electrical Test Firmware")] = QLatin1String("ELEC");
    firmware[QLatin1String("Null Firmware")] = QLatin1String("NULL");
    software.clear();
    software[QLatin1String("Software Applications")] = QLatin1String("APPL");
    software[QLatin1String("Embedded Source Code")] = QLatin1String("ESC");
    software[QLatin1String("Operating Systems")] = QLatin1String("OPER");
    software[QLatin1String("Software Scripts")] = QLatin1String("SCRIPT");
    software[QLatin1String("General Software")] = QLatin1String("SOFT");
    software[QLatin1String("Software Development Tools")] = QLatin1String("TOOL");
    software[QLatin1String("Test Software Tools")] = QLatin1String("TEST");
    software[QLatin1String("Graphical User Interface")] = QLatin1String("GUI");
    software[QLatin1String("Compiler")] = QLatin1String("CMPL");

    const QString last = saved.at(settings).isNull() ? QLatin1String(Firmware) : saved.at(settings);
    packageType = packageTypes.indexOf(last);
    handlePackageTypeChange();
}

void ArchiveModel::typeProjectCm(const QString& text)
{
    if (projectCm == text)
        return;
    projectCm = text;
    updatePackageName();
}

void ArchiveModel::choosePackageType(int index)
{
    if (packageType == index)
        return;
    packageType = index;
    handlePackageTypeChange();
}

void ArchiveModel::chooseDesignType(int index)
{
    if (designType == index)
        return;
    designType = index;
    updatePackageName();
}

void ArchiveModel::addDesignType(const QString& label)
{
    designTypes << label;
    // The first item of an empty box is selected.
    if (designTypes.count() == 1)
        chooseDesignType(0);
}

void ArchiveModel::setSequence(int value) { setSpin(&sequence, value, 1); }

void ArchiveModel::setMajor(int value) { setSpin(&major, value, 0); }

void ArchiveModel::setMinor(int value) { setSpin(&minor, value, 0); }

void ArchiveModel::setSpin(int* spin, int value, int least)
{
    const int bounded = qBound(least, value, 99);
    if (*spin == bounded)
        return;
    *spin = bounded;
    updatePackageName();
}

void ArchiveModel::setDialog(int index)
{
    dialog = index;
    if (dialog < 0 || dialogs.at(dialog).design < 0)
        return;
    const ArchivedDesign& design = designs.at(dialogs.at(dialog).design);
    setMajor(design.major);
    setMinor(design.minor);
    updatePackageName();
}

void ArchiveModel::updateDialog()
{
    if (dialog < 0)
        return;
    trace << QString::fromLatin1("dialog %1: append version 0").arg(dialog)
          << QString::fromLatin1("dialog %1: read-only 1").arg(dialog)
          << QString::fromLatin1("dialog %1: included items 0").arg(dialog);
}

void ArchiveModel::handlePackageTypeChange()
{
    const QString type = packageTypes.value(packageType);
    if (type == QLatin1String(Firmware) || type == QLatin1String(Software)) {
        designTypes = type == QLatin1String(Firmware) ? firmware.keys() : software.keys();
        designType = 0;
    }
    // An empty text, not nothing, when no type is selected.
    saved[settings] = type.isNull() ? QString::fromLatin1("") : type;
    updatePackageName();
}

QString ArchiveModel::codeOf(QMap<QString, QString>* table) const
{
    return (*table)[designTypes.value(designType)];
}

QString ArchiveModel::extension()
{
    ArchivingDialog& asked = dialogs[dialog];
    trace << QString::fromLatin1("dialog %1: extension").arg(dialog);
    return asked.extensions.at(asked.extensionsAsked++ % asked.extensions.count());
}

QString ArchiveModel::destinationFolder()
{
    const ArchivedDesign& design = designs.at(dialogs.at(dialog).design);
    trace << QLatin1String("structure");
    if (!design.hasStructure)
        return design.folder;
    const QString mapped = design.folders.value(extension());
    return mapped.isEmpty() ? design.folder : design.folder + QDir::separator() + mapped;
}

void ArchiveModel::updatePackageName()
{
    if (dialog < 0 || dialogs.at(dialog).design < 0)
        return;
    QString package;
    QString kind;
    QString code;
    const QString type = packageTypes.value(packageType);
    if (type == QLatin1String(Firmware)) {
        package = QLatin1String("7010");
        kind = QLatin1String("FW");
        code = codeOf(&firmware);
    } else if (type == QLatin1String(Software)) {
        package = QLatin1String("7030");
        kind = QLatin1String("SW");
        code = codeOf(&software);
    }
    const QString folder = destinationFolder();
    const QString name = package + "-" + projectCm + "-" + code + "-" + kind + "-" +
                         padded(sequence) + "-V-" + padded(major) + "_" + padded(minor);
    destination = folder + "/" + name + "." + extension();
    trace << QLatin1String("emit ") + destination << state();
}

QStringList ArchiveModel::state() const
{
    const auto shown = [this](const char* text) {
        return marked ? MarkingTranslator::marked(QLatin1String("ZORV_ArchiveConfigExtension"),
                                                  QLatin1String(text))
                      : QString::fromLatin1(text);
    };
    QStringList lines;
    lines << shown("Create Design Archive") << shown("Configuration Parameters")
          << shown("Project CM:") << shown("Package Type:") << shown("Design Type:")
          << shown("Sequence Number:") << shown("Revision:");
    lines << QString::fromLatin1("project %1").arg(projectCm)
          << QString::fromLatin1("package types %1 (%2): %3")
                 .arg(packageTypes.join(QLatin1String(", ")))
                 .arg(packageTypes.count())
                 .arg(packageType)
          << QString::fromLatin1("design types %1 (%2): %3")
                 .arg(designTypes.join(QLatin1String(", ")))
                 .arg(designTypes.count())
                 .arg(designType)
          << QString::fromLatin1("numbers %1 %2 %3").arg(sequence).arg(major).arg(minor);
    lines << QLatin1String(destination.isNull() ? "no destination" : "destination ") + destination;
    for (int file = 0; file < saved.count(); ++file)
        lines << QString::fromLatin1("settings %1: ").arg(file) +
                     (saved.at(file).isNull() ? QString::fromLatin1("nothing")
                                              : QLatin1Char('=') + saved.at(file));
    lines << QLatin1String("VKT Config Package, 19, installer 1, itself 1, all designs 1");
    return lines;
}
