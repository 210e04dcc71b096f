#ifndef TOOL_COMMANDS_BESIDEFILES_H
#define TOOL_COMMANDS_BESIDEFILES_H

#include <QString>

#include <optional>
#include <string>

class InputFile;
class Validator;
struct HeaderPage;
struct Task;

namespace CLI {
class App;
}

/// The files that say how an image should be, its companion and its digest: those that were named,
/// else those that are beside it.
class BesideFiles {
public:
    void declareSkipping(CLI::App* app);
    void declareNaming(CLI::App* app);

    bool areNamed() const { return m_companion || m_digest; }
    bool hasNamedDigest() const { return m_digest.has_value(); }

    void checkCompanion(const Validator& validator, const InputFile& file, const HeaderPage& page,
                        Task* task) const;

    /// A digest may be of the image with the filler behind it, or without. Returns whether the
    /// payload is known to be right or wrong.
    bool checkDigest(const InputFile& image, const HeaderPage& page, Task* task) const;

private:
    std::optional<QString> digestPath(const InputFile& image, Task* task) const;

    std::optional<std::string> m_companion;
    std::optional<std::string> m_digest;
    bool m_noCompanion = false;
    bool m_noDigest = false;
    bool m_requireDigest = false;
};

#endif
