#ifndef QTILITIESCORE_OBJECTMANAGER_H
#define QTILITIESCORE_OBJECTMANAGER_H

#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesCore/QtilitiesProperty.h>

#include <QObject>

namespace Qtilities {
namespace Core {

/// Shared properties of objects. They live in the object's dynamic properties, and so exactly as
/// long as the object. No object may be null.
class QTILITIES_SHARED_EXPORT ObjectManager {
public:
    /// The shared property \p name, or an invalid one when the object has none of that name.
    static SharedProperty getSharedProperty(const QObject* object, const char* name);

    /// Adds or replaces the property. Returns false for one without a name.
    static bool setSharedProperty(QObject* object, SharedProperty property);

    /// Whether the object has a property \p name, shared or not.
    static bool propertyExists(const QObject* object, const char* name);
};

} // namespace Core
} // namespace Qtilities

#endif
