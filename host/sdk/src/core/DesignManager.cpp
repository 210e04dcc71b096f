#include <DesignManager.h>

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

} // namespace OrvanticCore
