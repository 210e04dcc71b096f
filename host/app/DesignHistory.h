#ifndef HOST_APP_DESIGNHISTORY_H
#define HOST_APP_DESIGNHISTORY_H

#include <QString>

#include <functional>

class QUndoStack;

namespace OrvanticCore {
class Design;
}

/// What can be undone in each open design: all changes of its version, files, folders and
/// properties, each as a step of its own. What an extension changes is a step, too.
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
