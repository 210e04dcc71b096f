#ifndef ORVANTICCORE_DESIGNMANAGER_H
#define ORVANTICCORE_DESIGNMANAGER_H

#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QList>
#include <QObject>
#include <QString>

namespace OrvanticCore {

class IDesign;

/// What the host knows of its user and its designs. Made on first use, lives until the process
/// ends; callers never delete it. GUI thread only.
class ORVANTICCORE_SHARED_EXPORT DesignManager : public QObject {
    Q_OBJECT

public:
    static DesignManager* instance();

    /// The designs that are open, in the order in which they were opened. They stay the host's.
    QList<IDesign*> designs() const;

    /// The user's name: the full name that the system has for the account, or the account's name
    /// when it has none.
    QString currentUserName() const;

    /// The host's settings file, in INI format; it may not exist yet. Unless the host has set
    /// another one it is the user's file for the application's name.
    QString settingsFilePath() const;

    /// For the host: a design was opened, or is about to be closed. Null and a design listed
    /// already are ignored.
    void addDesign(IDesign* design);
    void removeDesign(IDesign* design);

    /// For the host. An empty path brings back the user's file.
    void setSettingsFilePath(const QString& path);

private:
    DesignManager();
    ~DesignManager() override;
    Q_DISABLE_COPY(DesignManager)

    QList<IDesign*> m_designs;
    QString m_settingsFilePath;
};

} // namespace OrvanticCore

#endif
