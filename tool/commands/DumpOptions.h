#ifndef TOOL_COMMANDS_DUMPOPTIONS_H
#define TOOL_COMMANDS_DUMPOPTIONS_H

#include "tool/check/FcfFile.h"

#include <optional>
#include <string>

struct Task;

namespace CLI {
class App;
}

/// The argument about where in a dump of a flash the image begins.
class DumpOptions {
public:
    void declare(CLI::App* app);

    bool isGiven() const { return m_offset.has_value(); }

    /// Reads \p file from there on, up to the 0xFF behind the image; what follows that is noted.
    /// Without the argument all of the file is read. Returns nothing, with an error, if that is no
    /// image.
    std::optional<FcfFile> read(InputFile file, Task* task) const;

private:
    std::optional<qint64> offset(const InputFile& file, Task* task) const;

    std::optional<std::string> m_offset;
};

#endif
