#ifndef TOOL_COMMANDS_STAMP_H
#define TOOL_COMMANDS_STAMP_H

#include <optional>
#include <string>

struct FcfHeader;
struct Task;

namespace CLI {
class App;
}

/// Where the date and the time of an image come from: --date-time, else SOURCE_DATE_EPOCH, else the
/// clock.
class Stamp {
public:
    void declare(CLI::App* app);

    /// Sets both. Whatever is malformed is refused, used or not.
    void apply(FcfHeader* header, Task* task) const;

private:
    std::optional<std::string> m_dateTime;
    std::optional<std::string> m_dateFormat;
};

#endif
