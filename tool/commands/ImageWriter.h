#ifndef TOOL_COMMANDS_IMAGEWRITER_H
#define TOOL_COMMANDS_IMAGEWRITER_H

#include "tool/commands/ImagePaths.h"
#include "tool/files/OutputTransaction.h"
#include "tool/files/Region.h"

#include <QByteArray>

#include <optional>

/// Writes an image and its sidecars.
struct ImageWriter {
    ImagePaths paths;
    bool hasCompanion = true;
    bool hasDigest = false;
    /// The whole header page.
    QByteArray page;
    Region payload;
    /// Bytes of 0xFF behind the payload.
    qint64 fillerBytes = 0;

    /// Writes all of them and gives them their names; an image for standard output goes to \p out,
    /// which is not owned. Returns the digest of the image, which is empty unless \p isHashed or it
    /// has a digest.
    Result<QByteArray> write(OutputTransaction::Existing existing, QIODevice* out,
                             const CopyObserver& observe, bool isHashed) const;

    /// The digest of the image if all files are there already, and have the same bytes.
    std::optional<QByteArray> digestIfUnchanged() const;

private:
    Result<QByteArray> writeImage(QIODevice* output, const QString& label,
                                  const CopyObserver& observe, bool isHashed) const;
    Status writeSidecars(const QByteArray& digest, OutputTransaction* files) const;
    bool isSameImage(const InputFile& image) const;
};

#endif
