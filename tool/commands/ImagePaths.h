#ifndef TOOL_COMMANDS_IMAGEPATHS_H
#define TOOL_COMMANDS_IMAGEPATHS_H

#include "tool/base/Result.h"

#include <QString>

#include <optional>

class InputFile;

/// The paths of an image and its sidecars.
struct ImagePaths {
    /// Derives them from \p binary and, if that is given, \p output, and refuses what gives none.
    static Result<ImagePaths> of(const InputFile& binary, const std::optional<QString>& output);

    /// The companion that belongs to the image \p image; nothing if the name is not that of an
    /// image.
    static std::optional<QString> companionOf(const QString& image);

    /// Whether the image goes to standard output, alone.
    bool toStandardOutput() const;

    /// May be "-".
    QString image;
    QString companion;
    QString digest;
    /// The name of the image in its header.
    QString imageName;
};

#endif
