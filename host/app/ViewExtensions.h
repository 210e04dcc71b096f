#ifndef HOST_APP_VIEWEXTENSIONS_H
#define HOST_APP_VIEWEXTENSIONS_H

#include <OrvanticCore/IDesignViewExtensions.h>

#include <QList>

namespace OrvanticCore {
class Design;
}

/// The extensions for design views that are in the object pool now.
namespace ViewExtensions {

QList<OrvanticCore::Interfaces::IDesignViewExtensions*> all();

/// Passes the lock states of \p design to each of them.
void refresh(const OrvanticCore::Design& design);

} // namespace ViewExtensions

#endif
