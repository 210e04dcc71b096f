#ifndef HOST_APP_VIEWEXTENSIONS_H
#define HOST_APP_VIEWEXTENSIONS_H

#include <OrvanticCore/IDesignViewExtensions.h>

#include <QList>

namespace OrvanticCore {
class Design;
class DesignFile;
} // namespace OrvanticCore

/// The extensions for design views that are in the object pool now.
namespace ViewExtensions {

QList<OrvanticCore::Interfaces::IDesignViewExtensions*> all();

/// Passes the lock states of \p design to each of them.
void refresh(const OrvanticCore::Design& design);

enum Place { Menu, ToolBar };

/// What they add to the context menu, or the tool bar, of \p file or, if that is null, of
/// \p design. Menus are returned as their actions. The lock states of the design have been passed
/// to them.
QList<QAction*> actions(Place place, OrvanticCore::DesignFile* file, OrvanticCore::Design* design,
                        const QString& context);

} // namespace ViewExtensions

#endif
