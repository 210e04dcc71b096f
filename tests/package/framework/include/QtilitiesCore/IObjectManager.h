#ifndef FRAMEWORK_IOBJECTMANAGER_H
#define FRAMEWORK_IOBJECTMANAGER_H

#include <QtilitiesCategory.h>

#include <QObject>

namespace Qtilities {
namespace Core {
namespace Interfaces {

class QTILITIES_CORE_EXPORT IObjectManager : public QObject {
    Q_OBJECT

public:
    explicit IObjectManager(QObject* parent = nullptr) : QObject(parent), m_locked(false) {}
    virtual void registerObject(QObject* object,
                                QtilitiesCategory category = QtilitiesCategory()) = 0;
    virtual void removeObject(QObject* object) = 0;
    virtual QList<QObject*> registeredInterfaces(const QString& iface) const = 0;
    virtual int registeredCount() const = 0;

Q_SIGNALS:
    void newObjectAdded(QObject* object);
    void objectRemoved(QObject* object);

private:
    bool m_locked;
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

#endif
