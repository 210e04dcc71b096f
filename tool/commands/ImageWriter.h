#ifndef TOOL_COMMANDS_IMAGEWRITER_H
#define TOOL_COMMANDS_IMAGEWRITER_H

#include "tool/commands/ImagePaths.h"
#include "tool/files/InputFile.h"
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

    /// An image that is there already.
    struct Old {
        QByteArray digest;
        /// Open, so that no other file can get its identity.
        InputFile file;
    };

    /// The image that is there already, if it has the same bytes.
    std::optional<Old> findUnchanged() const;

    /// Writes the sidecars alone, beside \p old, unless another run has replaced that.
    Status writeSidecars(const Old& old) const;

    /// Whether the companion or the digest that is there is right beside an image with \p digest.
    bool isCompanionRight() const;
    bool isDigestRight(const QByteArray& digest) const;

private:
    Result<QByteArray> writeImage(QIODevice* output, const QString& label,
                                  const CopyObserver& observe, bool isHashed) const;
    Status addSidecars(const QByteArray& digest, OutputTransaction* files) const;
    bool isSameImage(const InputFile& image) const;
};

#endif
