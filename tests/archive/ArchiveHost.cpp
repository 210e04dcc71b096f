#include "archive/ArchiveHost.h"

#include <OrvanticCore/DesignManager.h>

#include <QSettings>

using OrvanticCore::DesignManager;
using ZORV_Plugin::ZORV_ArchiveConfigExtension;

namespace {

const char PackageTypeKey[] = "Plugins/ZORV_Plugin/active_package_type";

QString callText(const char* control, bool state)
{
    return QString("%1: %2").arg(control, state ? "true" : "false");
}

} // namespace

void NotingDialog::setAppendVersionCheckboxVisible(bool visible)
{
    calls << callText("append version", visible);
}

void NotingDialog::setDestinationPathReadOnly(bool read_only)
{
    calls << callText("read-only", read_only);
}

void NotingDialog::setIncludedItemsGroupboxVisible(bool visible)
{
    calls << callText("included items", visible);
}

ArchiveHost::ArchiveHost(const QString& packageType) : m_design("/designs/radar", "Firmware Design")
{
    if (!m_folder.isValid())
        qFatal("no temporary folder");
    m_settingsBefore = DesignManager::instance()->settingsFilePath();
    DesignManager::instance()->setSettingsFilePath(settingsPath());
    if (!packageType.isNull())
        QSettings(settingsPath(), QSettings::IniFormat).setValue(PackageTypeKey, packageType);
    m_design.setVersion(1, 0);
    m_dialog.archivedDesign = &m_design;
    restart();
}

ArchiveHost::~ArchiveHost() { DesignManager::instance()->setSettingsFilePath(m_settingsBefore); }

void ArchiveHost::restart()
{
    m_paths.reset();
    m_extension.reset();
    m_extension = std::make_unique<ZORV_ArchiveConfigExtension>();
    m_paths =
        std::make_unique<QSignalSpy>(m_extension.get(), SIGNAL(destinationPathChanged(QString)));
}

void ArchiveHost::attach() { interface()->setArchiveDialogWidget(&m_dialog); }

OrvanticCore::Interfaces::IDesignArchiveExtension* ArchiveHost::interface() const
{
    return m_extension.get();
}

QStringList ArchiveHost::designTypes() const
{
    QStringList types;
    for (int index = 0; index < designType()->count(); ++index)
        types << designType()->itemText(index);
    return types;
}

QStringList ArchiveHost::takePaths()
{
    QStringList paths;
    while (!m_paths->isEmpty())
        paths << m_paths->takeFirst().constFirst().toString();
    return paths;
}

QVariant ArchiveHost::savedPackageType() const
{
    return QSettings(settingsPath(), QSettings::IniFormat).value(PackageTypeKey);
}

QString ArchiveHost::settingsPath() const { return m_folder.filePath("host.ini"); }

#include "moc_ArchiveHost.cpp"
