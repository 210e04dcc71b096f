#include "archive/ZORV_ArchiveConfigExtension.h"

#include "ui_ZORV_ArchiveConfigExtension.h"

#include <OrvanticCore/DesignArchiveOutputParserDialog.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>
#include <OrvanticCore/IDesign.h>

#include <QDir>
#include <QSettings>
#include <QStringList>

using OrvanticCore::DesignArchiveOutputParserDialog;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::IDesign;

namespace ZORV_Plugin {

namespace {

const char DefaultPackageType[] = "7010 (Firmware)";
const char PackageTypeKey[] = "active_package_type";

/// The host's settings, in the plug-in's group of them.
class PluginSettings : public QSettings {
public:
    PluginSettings() : QSettings(DesignManager::instance()->settingsFilePath(), IniFormat)
    {
        beginGroup(QLatin1String("Plugins"));
        beginGroup(QLatin1String("ZORV_Plugin"));
    }
    ~PluginSettings() override
    {
        endGroup();
        endGroup();
    }
};

QString twoDigits(int number)
{
    const QString digits = QString::number(number);
    return digits.length() == 1 ? QLatin1Char('0') + digits : digits;
}

} // namespace

/// A package type of the form, with its codes in the name of a package.
struct ZORV_ArchiveConfigExtension::PackageType {
    const char* label;
    const char* packageCode;
    const char* kindCode;
    DesignTypes ZORV_ArchiveConfigExtension::*designTypes;
};

/// The package types, in the order of the form.
const ZORV_ArchiveConfigExtension::PackageType ZORV_ArchiveConfigExtension::PackageTypes[] = {
    {"7010 (Firmware)", "7010", "FW", &ZORV_ArchiveConfigExtension::firmwareDesignTypes},
    {"7030 (Software)", "7030", "SW", &ZORV_ArchiveConfigExtension::softwareDesignTypes},
};

ZORV_ArchiveConfigExtension::ZORV_ArchiveConfigExtension(QWidget* parent)
    : QWidget(parent), ui(new Ui_ZORV_ArchiveConfigExtension), archiveDialog(nullptr)
{
    ui->setupUi(this);
    connectNameFields();
    fillDesignTypes();
    for (const PackageType& type : PackageTypes)
        ui->cmbPackageType->addItem(QLatin1String(type.label));
    restorePackageType();
    handlePackageTypeChange();
    // Connected only now: filling the list would have overwritten the setting that was just read.
    connect(ui->cmbPackageType, SIGNAL(currentIndexChanged(int)), SLOT(handlePackageTypeChange()));
}

ZORV_ArchiveConfigExtension::~ZORV_ArchiveConfigExtension() { delete ui; }

void ZORV_ArchiveConfigExtension::connectNameFields()
{
    connect(ui->txtProjectCM, SIGNAL(textChanged(QString)), SLOT(updatePackageName()));
    connect(ui->cmbDesignType, SIGNAL(currentIndexChanged(int)), SLOT(updatePackageName()));
    connect(ui->spinBoxSequenceNumber, SIGNAL(valueChanged(int)), SLOT(updatePackageName()));
    connect(ui->spinBoxVersionMajor, SIGNAL(valueChanged(int)), SLOT(updatePackageName()));
    connect(ui->spinBoxVersionMinor, SIGNAL(valueChanged(int)), SLOT(updatePackageName()));
}

void ZORV_ArchiveConfigExtension::fillDesignTypes()
{
    firmwareDesignTypes[QLatin1String("Functional Firmware")] = QLatin1String("FUNC");
    firmwareDesignTypes[QLatin1String("Electrical Test Firmware")] = QLatin1String("ELEC");
    firmwareDesignTypes[QLatin1String("Null Firmware")] = QLatin1String("NULL");

    softwareDesignTypes[QLatin1String("Software Applications")] = QLatin1String("APPL");
    softwareDesignTypes[QLatin1String("Embedded Source Code")] = QLatin1String("ESC");
    softwareDesignTypes[QLatin1String("Operating Systems")] = QLatin1String("OPER");
    softwareDesignTypes[QLatin1String("Software Scripts")] = QLatin1String("SCRIPT");
    softwareDesignTypes[QLatin1String("General Software")] = QLatin1String("SOFT");
    softwareDesignTypes[QLatin1String("Software Development Tools")] = QLatin1String("TOOL");
    softwareDesignTypes[QLatin1String("Test Software Tools")] = QLatin1String("TEST");
    softwareDesignTypes[QLatin1String("Graphical User Interface")] = QLatin1String("GUI");
    softwareDesignTypes[QLatin1String("Compiler")] = QLatin1String("CMPL");
}

void ZORV_ArchiveConfigExtension::restorePackageType()
{
    const QString type =
        PluginSettings()
            .value(QLatin1String(PackageTypeKey), QString(QLatin1String(DefaultPackageType)))
            .toString();
    ui->cmbPackageType->setCurrentIndex(
        ui->cmbPackageType->findText(type, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void ZORV_ArchiveConfigExtension::savePackageType() const
{
    PluginSettings().setValue(QLatin1String(PackageTypeKey), ui->cmbPackageType->currentText());
}

QWidget* ZORV_ArchiveConfigExtension::extensionWidget() { return this; }

QString ZORV_ArchiveConfigExtension::archiveType() const
{
    return QLatin1String("VKT Config Package");
}

QString ZORV_ArchiveConfigExtension::destinationPathOnActivation() const { return destinationPath; }

void ZORV_ArchiveConfigExtension::setArchiveDialogWidget(DesignArchiveOutputParserDialog* dialog)
{
    archiveDialog = dialog;
    const IDesign* const design = dialog ? dialog->design() : nullptr;
    if (!design)
        return;
    ui->spinBoxVersionMajor->setValue(design->versionMajor());
    ui->spinBoxVersionMinor->setValue(design->versionMinor());
    updatePackageName();
}

void ZORV_ArchiveConfigExtension::updateArchiveDialogWidget()
{
    if (!archiveDialog)
        return;
    archiveDialog->setAppendVersionCheckboxVisible(false);
    archiveDialog->setDestinationPathReadOnly(true);
    archiveDialog->setIncludedItemsGroupboxVisible(false);
}

IDesignArchiveExtension::ArchiveItemFlags ZORV_ArchiveConfigExtension::archiveDesignItems() const
{
    return ArchiveItemFlags(SourceFiles) | GeneratedFiles | DesignDescription;
}

bool ZORV_ArchiveConfigExtension::archiveIncludeInstaller() const { return true; }

void ZORV_ArchiveConfigExtension::handleDestinationPathChanged(const QString& new_destination_path)
{
    Q_UNUSED(new_destination_path)
}

void ZORV_ArchiveConfigExtension::updatePackageName()
{
    const IDesign* const design = archiveDialog ? archiveDialog->design() : nullptr;
    if (!design)
        return;

    const QString number = twoDigits(ui->spinBoxSequenceNumber->value());
    const QString major = twoDigits(ui->spinBoxVersionMajor->value());
    const QString minor = twoDigits(ui->spinBoxVersionMinor->value());

    QString packageCode;
    QString kindCode;
    QString designCode;
    if (const PackageType* const type = selectedPackageType()) {
        packageCode = QLatin1String(type->packageCode);
        kindCode = QLatin1String(type->kindCode);
        // Inserts a label that the map does not have: it is listed from now on, without a code.
        designCode = (this->*type->designTypes)[ui->cmbDesignType->currentText()];
    }

    // Looked up first: the dialog is asked for its format once for the folder, and then once more.
    const QString folder = destinationFolder(*design);
    const QStringList parts = QStringList()
                              << packageCode << ui->txtProjectCM->text() << designCode << kindCode
                              << number << QLatin1String("V") << major + QLatin1Char('_') + minor;
    destinationPath = folder + QLatin1Char('/') + parts.join(QLatin1String("-")) +
                      QLatin1Char('.') + archiveDialog->currentExtension();
    // By its full name, since the constructor comes here too.
    emit ZORV_ArchiveConfigExtension::destinationPathChanged(destinationPath);
}

QString ZORV_ArchiveConfigExtension::destinationFolder(const IDesign& design) const
{
    const DesignStructure* const structure = design.structure();
    if (!structure)
        return design.workingFolderPath();

    const QString pattern = QLatin1String("*.") + archiveDialog->currentExtension();
    const QString subFolder =
        structure->mapFileNameToWorkingFolderPath(pattern, QString(), QString());
    if (subFolder.isEmpty())
        return design.workingFolderPath();
    return design.workingFolderPath() + QDir::separator() + subFolder;
}

/// Null when none is selected.
const ZORV_ArchiveConfigExtension::PackageType*
ZORV_ArchiveConfigExtension::selectedPackageType() const
{
    for (const PackageType& type : PackageTypes) {
        if (ui->cmbPackageType->currentText() == QLatin1String(type.label))
            return &type;
    }
    return nullptr;
}

void ZORV_ArchiveConfigExtension::handlePackageTypeChange()
{
    if (const PackageType* const type = selectedPackageType())
        listDesignTypes(this->*type->designTypes);
    savePackageType();
    updatePackageName();
}

void ZORV_ArchiveConfigExtension::listDesignTypes(const DesignTypes& types)
{
    // One name for the new list, not one for each step of filling it.
    ui->cmbDesignType->blockSignals(true);
    ui->cmbDesignType->clear();
    ui->cmbDesignType->addItems(types.keys());
    ui->cmbDesignType->blockSignals(false);
}

} // namespace ZORV_Plugin
