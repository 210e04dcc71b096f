#ifndef QTILITIESCORE_IOBJECTMANAGER_H
#define QTILITIESCORE_IOBJECTMANAGER_H

#include <QtilitiesCore/QtilitiesCategory.h>
#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QList>
#include <QObject>

namespace Qtilities {
namespace Core {
namespace Interfaces {

/// The global object pool: plug-ins put objects in, the host finds them by interface.
///
/// Life cycle: made on first use, lives until the process ends. Its objects are not owned; one that
/// is deleted leaves the pool by itself. GUI thread only.
class QTILITIES_SHARED_EXPORT IObjectManager : public QObject {
    Q_OBJECT

public:
    explicit IObjectManager(QObject* parent = nullptr) : QObject(parent) {}
    ~IObjectManager() override;

    /// Adds \p object, which stays its owner's. Null and an object already there are ignored.
    virtual void registerObject(QObject* object,
                                QtilitiesCategory category = QtilitiesCategory()) = 0;

    /// Takes \p object out without deleting it.
    virtual void removeObject(QObject* object) = 0;

    /// The objects that a meta-cast by the name or identifier \p iface accepts, in the order of
    /// their registration.
    virtual QList<QObject*> registeredInterfaces(const QString& iface) const = 0;

Q_SIGNALS:
    void newObjectAdded(QObject* object);

    /// For an object that left by deletion only its address is valid any more.
    void objectRemoved(QObject* object);
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

#endif
