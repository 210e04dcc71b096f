#ifndef TOOL_COMMANDS_BUILDOPTIONS_H
#define TOOL_COMMANDS_BUILDOPTIONS_H

#include "tool/build/Build.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

struct Task;

namespace CLI {
class App;
}

/// The arguments that describe a build, and when it is made.
class BuildOptions {
public:
    void declare(CLI::App* app);

    /// What they say, completed from the file given with --like. What cannot be taken as it was
    /// given is refused.
    Build build(Task* task) const;

    /// Sets date and time: --date-time, else SOURCE_DATE_EPOCH, else the clock. Whatever is
    /// malformed is refused, used or not.
    void stamp(FcfHeader* header, Task* task) const;

private:
    std::optional<Build> like(Task* task) const;

    /// By the names of the fields.
    std::map<std::string, std::optional<std::string>> m_given;
    std::vector<std::string> m_functions;
    std::optional<std::string> m_like;
    std::optional<std::string> m_dateTime;
    std::optional<std::string> m_dateFormat;
};

#endif
