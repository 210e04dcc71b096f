#include "host/app/archive/ArchiveMemory.h"

#include <OrvanticCore/DesignManager.h>

#include <QSettings>
#include <QUrl>

using OrvanticCore::DesignManager;

namespace {

QString settingsPath() { return DesignManager::instance()->settingsFilePath(); }

/// A slash in a key would begin a group.
QString folderKey(const QString& designFolder)
{
    return "ArchiveDialog/folders/" + QString::fromLatin1(QUrl::toPercentEncoding(designFolder));
}

} // namespace

ArchiveMemory ArchiveMemory::load(const QString& designFolder)
{
    const QSettings settings(settingsPath(), QSettings::IniFormat);
    return {settings.value("ArchiveDialog/type").toString(),
            settings.value("ArchiveDialog/extension").toString(),
            settings.value(folderKey(designFolder)).toString()};
}

void ArchiveMemory::save(const QString& designFolder) const
{
    QSettings settings(settingsPath(), QSettings::IniFormat);
    settings.setValue("ArchiveDialog/type", type);
    settings.setValue("ArchiveDialog/extension", extension);
    if (folder.isEmpty())
        settings.remove(folderKey(designFolder));
    else
        settings.setValue(folderKey(designFolder), folder);
}
