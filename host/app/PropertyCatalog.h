#ifndef HOST_APP_PROPERTYCATALOG_H
#define HOST_APP_PROPERTYCATALOG_H

#include <QtilitiesCore/IAvailablePropertyProvider.h>

#include <QList>

/// The properties that the providers in the object pool announce now.
namespace PropertyCatalog {

/// Those that a user may have on an object of the class of \p object, each name once.
QList<Qtilities::Core::PropertySpecification> availableFor(const QObject* object);

/// The one among them with that name, or an invalid one.
Qtilities::Core::PropertySpecification find(const QObject* object, const QString& name);

} // namespace PropertyCatalog

#endif
