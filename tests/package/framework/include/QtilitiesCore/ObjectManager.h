#ifndef FRAMEWORK_OBJECTMANAGER_H
#define FRAMEWORK_OBJECTMANAGER_H

#include <IObjectManager.h>
#include <QtilitiesProperty.h>

namespace Qtilities {
namespace Core {

/// Gives each object without a name that of its class.
class QTILITIES_CORE_EXPORT ObjectManager : public Interfaces::IObjectManager {
    Q_OBJECT

public:
    static SharedProperty getSharedProperty(const QObject* object, const char* name);
    static bool setSharedProperty(QObject* object, SharedProperty property);
    static bool propertyExists(const QObject* object, const char* name);

    void registerObject(QObject* object, QtilitiesCategory category) override;
    void removeObject(QObject* object) override;
    QList<QObject*> registeredInterfaces(const QString& iface) const override;
    int registeredCount() const override { return m_pool.count(); }

private:
    QList<QObject*> m_pool;
};

} // namespace Core
} // namespace Qtilities

#endif
