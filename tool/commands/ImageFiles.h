#ifndef TOOL_COMMANDS_IMAGEFILES_H
#define TOOL_COMMANDS_IMAGEFILES_H

#include "tool/commands/Outputs.h"
#include "tool/files/Copy.h"
#include "tool/files/OutputFiles.h"

#include <QByteArray>

#include <optional>

/// An image, its companion and its digest, as they are to be written. Owns none of the files.
struct ImageFiles {
    Outputs outputs;
    bool hasCompanion = true;
    bool hasDigest = false;
    /// The whole header page.
    QByteArray page;
    Region payload;
    /// 0xFF behind the payload.
    qint64 fillerBytes = 0;

    /// Writes all of them and puts them in place; an image for standard output goes to \p out. With
    /// \p digest, which may be null, it is given the image's own.
    Status write(OutputFiles::Existing existing, QIODevice* out, const CopyObserver& observe,
                 QByteArray* digest) const;

    /// The digest of the image if all of them are there already, and just so.
    std::optional<QByteArray> digestIfThere() const;
};

#endif
