#include "host/sdk/framework/src/ObjectPool.h"

#include <QByteArray>
#include <QVariant>

namespace Qtilities {
namespace Core {

namespace Interfaces {

IObjectManager::~IObjectManager() {}

} // namespace Interfaces

ObjectPool* ObjectPool::instance()
{
    // Left to the end of the process: pooled objects outlive every place that could delete it.
    static ObjectPool* const pool = new ObjectPool;
    return pool;
}

void ObjectPool::registerObject(QObject* object, QtilitiesCategory category)
{
    if (!object || m_objects.contains(object))
        return;
    object->setProperty("qti.prop.CategoryMap", category.toStringList());
    m_objects.append(object);
    connect(object, SIGNAL(destroyed(QObject*)), this, SLOT(forgetDeletedObject(QObject*)));
    emit newObjectAdded(object);
}

void ObjectPool::removeObject(QObject* object)
{
    if (!m_objects.removeOne(object))
        return;
    disconnect(object, SIGNAL(destroyed(QObject*)), this, SLOT(forgetDeletedObject(QObject*)));
    emit objectRemoved(object);
}

QList<QObject*> ObjectPool::registeredInterfaces(const QString& iface) const
{
    const QByteArray name = iface.toLatin1();
    QList<QObject*> matching;
    foreach (QObject* object, m_objects) {
        if (object->qt_metacast(name.constData()))
            matching.append(object);
    }
    return matching;
}

void ObjectPool::forgetDeletedObject(QObject* object)
{
    m_objects.removeOne(object);
    emit objectRemoved(object);
}

} // namespace Core
} // namespace Qtilities
