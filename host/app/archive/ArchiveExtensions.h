#ifndef HOST_APP_ARCHIVE_ARCHIVEEXTENSIONS_H
#define HOST_APP_ARCHIVE_ARCHIVEEXTENSIONS_H

#include <QList>
#include <QObject>

namespace OrvanticCore {
class Design;
}

/// The archive extensions in the object pool that are meant for \p design, in the order of their
/// registration. An extension is meant for a design when it names the type of the design, or
/// leaves the types open. Designs of this host have neither the identifiers nor the origins that
/// structures have elsewhere: an extension that asks for some is not meant.
QList<QObject*> archiveExtensionsFor(const OrvanticCore::Design* design);

#endif
