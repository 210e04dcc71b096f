#ifndef TOOL_COMMANDS_SIDECAROPTIONS_H
#define TOOL_COMMANDS_SIDECAROPTIONS_H

#include "tool/files/DigestList.h"
#include "tool/files/InputFile.h"

#include <QString>

#include <optional>
#include <string>

class FcfFileChecker;
struct FcfFile;
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

    /// Leaves companions alone.
    void skipCompanion() { m_noCompanion = true; }

    /// Leaves alone what is beside the image, but not what was named.
    void skipUnnamed();

    bool hasNamedCompanion() const { return m_companion.has_value(); }
    bool hasNamedDigest() const { return m_digest.has_value(); }

    /// How many images the named digest list is for. A list for one of several is not taken for
    /// another of them.
    void setImageCount(int count) { m_imageCount = count; }

    /// An image or a companion, and what was opened with it.
    struct Set {
        InputFile file;
        std::optional<InputFile> companion;
        std::optional<InputFile> digest;
    };

    /// Opens the file at \p path and its sidecars, while no other run replaces one of them; the
    /// digest only if \p isImage. Returns nothing, with an error, if the file cannot be opened.
    std::optional<Set> open(const QString& path, bool isImage, Task* task) const;

    static void checkCompanion(const FcfFileChecker& checker, const HeaderPage& page,
                               const std::optional<InputFile>& companion);

    /// A digest may be of the image with the filler behind it, or without. Returns whether the
    /// payload is known to be right or wrong.
    bool checkDigest(const FcfFile& image, const std::optional<InputFile>& digest, Task* task);

    /// Checks that \p image is valid, and that no sidecar of \p set contradicts it. Notes are
    /// dropped. Returns whether there are no errors.
    bool checkImage(const FcfFile& image, const Set& set, Task* task);

private:
    std::optional<QString> companionPath(const InputFile& file, Task* task) const;
    std::optional<QString> digestPath(const InputFile& image, Task* task) const;
    std::optional<DigestList> list(const std::optional<InputFile>& digest, Task* task);
    std::optional<QList<DigestList::Entry>> expectedEntries(const InputFile& image,
                                                            const QString& path,
                                                            const DigestList& list,
                                                            Task* task) const;

    std::optional<std::string> m_companion;
    std::optional<std::string> m_digest;
    bool m_noCompanion = false;
    bool m_noDigest = false;
    bool m_requireDigest = false;
    int m_imageCount = 1;
    /// The list that --digest names, once it was read.
    std::optional<DigestList> m_list;
    QString m_listPath;
};

#endif
