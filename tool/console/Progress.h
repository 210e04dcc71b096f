#ifndef TOOL_CONSOLE_PROGRESS_H
#define TOOL_CONSOLE_PROGRESS_H

#include "tool/files/Region.h"

#include <QString>

struct Environment;

/// Shows a person at a terminal how far a run has come, once it takes longer than a second. Nothing
/// is shown anywhere else.
namespace Progress {

/// The total while nobody knows it yet.
constexpr qint64 Unknown = -1;

/// Returns what to call with each part of \p total bytes while \p label goes on. It clears what it
/// showed when its last copy is destroyed. \p environment is not owned.
CopyObserver observer(const Environment* environment, const QString& label, qint64 total);

} // namespace Progress

#endif
