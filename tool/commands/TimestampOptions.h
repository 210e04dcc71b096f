#ifndef TOOL_COMMANDS_TIMESTAMPOPTIONS_H
#define TOOL_COMMANDS_TIMESTAMPOPTIONS_H

#include <optional>
#include <string>

struct FcfHeader;
struct Task;

namespace CLI {
class App;
}

/// The arguments that give the date and time of an image.
class TimestampOptions {
public:
    void declare(CLI::App* app);

    /// Sets date and time: --date-time, else SOURCE_DATE_EPOCH, else the clock. Whatever is
    /// malformed is refused, used or not.
    void stamp(FcfHeader* header, Task* task) const;

private:
    std::optional<std::string> m_dateTime;
    std::optional<std::string> m_dateFormat;
};

#endif
