#ifndef FRAMEWORK_OBJECTPOOL_H
#define FRAMEWORK_OBJECTPOOL_H

#include <QtilitiesCore/IObjectManager.h>

namespace Qtilities {
namespace Core {

class ObjectPool : public Interfaces::IObjectManager {
    Q_OBJECT

public:
    static ObjectPool* instance();

    void registerObject(QObject* object, QtilitiesCategory category) override;
    void removeObject(QObject* object) override;
    QList<QObject*> registeredInterfaces(const QString& iface) const override;

private Q_SLOTS:
    void forgetDeletedObject(QObject* object);

private:
    ObjectPool() {}

    QList<QObject*> m_objects;
};

} // namespace Core
} // namespace Qtilities

#endif
