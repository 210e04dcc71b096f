#ifndef TOOL_COMMANDS_OUTPUTCHECKS_H
#define TOOL_COMMANDS_OUTPUTCHECKS_H

#include "tool/check/FileKind.h"

#include <QString>

#include <optional>

struct Task;

/// Checks the outputs of a run before anything is written. What is refused becomes an error of the
/// task.
namespace OutputChecks {

/// What is done with an output that exists.
struct Existing {
    bool isReplaced = false;
    /// A file of another kind is never replaced. Nothing if any file may be.
    std::optional<FileKind::Kind> kind;
};

/// Checks that the output \p path is none of the inputs, under any name, that it is no folder, and
/// that it does not exist unless \p existing lets it be replaced.
void checkFile(const QString& path, const Existing& existing, Task* task);

/// Checks that standard output is none of the inputs, and if it gets binary data, no terminal.
void checkStandardOutput(bool getsBinary, Task* task);

/// Checks the file \p path, which \p option keeps from being written with the outputs beside it: it
/// must be no input, and if it exists that is a warning.
void checkUnwritten(const QString& path, const char* option, Task* task);

} // namespace OutputChecks

#endif
