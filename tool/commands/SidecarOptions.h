#ifndef TOOL_COMMANDS_SIDECAROPTIONS_H
#define TOOL_COMMANDS_SIDECAROPTIONS_H

#include <QByteArray>
#include <QString>

#include <optional>
#include <string>

class FcfFileChecker;
class InputFile;
struct HeaderPage;
struct Task;

namespace CLI {
class App;
}

/// The arguments about the sidecars of an image, its companion and its digest: they say how the
/// image should be. Those that were named are taken, or else those that are beside it.
class SidecarOptions {
public:
    void declareSkipping(CLI::App* app);
    void declareNaming(CLI::App* app);

    bool areNamed() const { return m_companion || m_digest; }
    bool hasNamedDigest() const { return m_digest.has_value(); }

    void checkCompanion(const FcfFileChecker& checker, const InputFile& file,
                        const HeaderPage& page, Task* task) const;

    /// A digest may be of the image with the filler behind it, or without. Returns whether the
    /// payload is known to be right or wrong.
    bool checkDigest(const InputFile& image, const HeaderPage& page, Task* task) const;

private:
    std::optional<QString> companionPath(const InputFile& file, Task* task) const;
    std::optional<QString> digestPath(const InputFile& image, Task* task) const;
    static bool checkRenamed(const InputFile& image, const HeaderPage& page,
                             const QByteArray& lines, const QString& path, Task* task);

    std::optional<std::string> m_companion;
    std::optional<std::string> m_digest;
    bool m_noCompanion = false;
    bool m_noDigest = false;
    bool m_requireDigest = false;
};

#endif
