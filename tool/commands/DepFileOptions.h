#ifndef TOOL_COMMANDS_DEPFILEOPTIONS_H
#define TOOL_COMMANDS_DEPFILEOPTIONS_H

#include <QString>

#include <optional>
#include <string>

struct ImagePaths;
struct Task;

namespace CLI {
class App;
}

/// The arguments about the file that lists the inputs of a run for make and ninja.
class DepFileOptions {
public:
    void declare(CLI::App* app);

    /// Checks the file before anything is written. It is none of the files of \p image.
    void check(const ImagePaths& image, Task* task);

    /// Writes it, if it was asked for: \p image depends on all that \p task has read but itself.
    void write(const ImagePaths& image, Task* task) const;

private:
    std::optional<std::string> m_file;
    std::optional<std::string> m_target;
    std::optional<QString> m_path;
    std::optional<QString> m_targetName;
};

#endif
