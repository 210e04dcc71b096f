#ifndef HOST_APP_PROPERTYCATALOG_H
#define HOST_APP_PROPERTYCATALOG_H

#include <QtilitiesCore/IAvailablePropertyProvider.h>

#include <QList>
#include <QStringList>

namespace OrvanticCore {
class Design;
}

/// The properties that the providers in the object pool announce now, and their usual values.
namespace PropertyCatalog {

/// Those that a user may have on an object of the class of \p object, each name once.
QList<Qtilities::Core::PropertySpecification> availableFor(const QObject* object);

/// The one among them with that name, or an invalid one.
Qtilities::Core::PropertySpecification find(const QObject* object, const QString& name);

/// The values that image generators know for a target property of \p design, empty for any other
/// property. The devices are those of the module that the design has.
QStringList choices(const OrvanticCore::Design& design, const QString& property);

} // namespace PropertyCatalog

#endif
