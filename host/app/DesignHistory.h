#ifndef HOST_APP_DESIGNHISTORY_H
#define HOST_APP_DESIGNHISTORY_H

#include <QString>

#include <functional>

class QUndoStack;

namespace OrvanticCore {
class Design;
}

/// What can be undone in each open design: changes of its files, folders and properties that the
/// user made. Changes by extensions in between are left as they are.
namespace DesignHistory {

/// Gives \p design a history, which it owns.
void attach(OrvanticCore::Design* design);

/// The history of \p design, or null.
QUndoStack* of(const OrvanticCore::Design* design);

/// Runs \p change, which may change files, folders and properties of \p design, and records its
/// effect under \p text. Without a history it only runs the change.
void record(OrvanticCore::Design* design, const QString& text, const std::function<void()>& change);

} // namespace DesignHistory

#endif
