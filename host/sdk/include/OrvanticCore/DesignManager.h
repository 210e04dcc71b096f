#ifndef ORVANTICCORE_DESIGNMANAGER_H
#define ORVANTICCORE_DESIGNMANAGER_H

#include <OrvanticCoreGlobal.h>

#include <QObject>
#include <QString>

namespace OrvanticCore {

/// What the host knows of its user and its designs. Made on first use, lives until the process
/// ends; callers never delete it. GUI thread only.
class ORVANTICCORE_SHARED_EXPORT DesignManager : public QObject {
    Q_OBJECT

public:
    static DesignManager* instance();

    /// The name of the person at the keyboard: the full name that the system holds for the
    /// account, or the account's name when it holds none.
    QString currentUserName() const;

private:
    DesignManager();
    ~DesignManager();
    Q_DISABLE_COPY(DesignManager)
};

} // namespace OrvanticCore

#endif
