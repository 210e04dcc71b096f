#include <OrvanticCore/DesignManager.h>

#include <QCoreApplication>
#include <QSettings>

#include <pwd.h>
#include <unistd.h>

namespace OrvanticCore {

DesignManager::DesignManager() {}

DesignManager::~DesignManager() {}

DesignManager* DesignManager::instance()
{
    static DesignManager manager;
    return &manager;
}

QList<IDesign*> DesignManager::designs() const { return m_designs; }

QString DesignManager::currentUserName() const
{
    const passwd* const account = getpwuid(getuid());
    if (!account)
        return QString::fromLocal8Bit(qgetenv("USER"));
    // The first comma-separated entry of the account's comment is the full name by convention.
    const QString fullName =
        QString::fromLocal8Bit(account->pw_gecos).section(QLatin1Char(','), 0, 0).trimmed();
    return fullName.isEmpty() ? QString::fromLocal8Bit(account->pw_name) : fullName;
}

QString DesignManager::settingsFilePath() const
{
    if (!m_settingsFilePath.isEmpty())
        return m_settingsFilePath;
    return QSettings(QSettings::IniFormat, QSettings::UserScope,
                     QCoreApplication::organizationName(), QCoreApplication::applicationName())
        .fileName();
}

void DesignManager::addDesign(IDesign* design)
{
    if (design && !m_designs.contains(design))
        m_designs.append(design);
}

void DesignManager::removeDesign(IDesign* design) { m_designs.removeOne(design); }

void DesignManager::setSettingsFilePath(const QString& path) { m_settingsFilePath = path; }

} // namespace OrvanticCore
