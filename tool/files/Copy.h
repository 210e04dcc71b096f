#ifndef TOOL_FILES_COPY_H
#define TOOL_FILES_COPY_H

#include "fcf/PayloadCopy.h"
#include "tool/files/FileSystem.h"

#include <QByteArray>

#include <functional>

class InputFile;
class QIODevice;

/// Called with each part of what is read or copied, in turn. Shows progress, or takes a digest.
using CopyObserver = PayloadCopy::Observer;

/// Writes all of \p bytes.
FileSystem::OrReason<void> writeAll(QIODevice* device, const QByteArray& bytes);

/// Writes all of \p bytes to \p sink, an output that messages call \p label.
Status writeAll(QIODevice* sink, const QByteArray& bytes, const QString& label);

/// A part of a file, in bytes, and what is done to it on the way. Owns nothing.
struct Region {
    const InputFile* file = nullptr;
    qint64 offset = 0;
    qint64 bytes = 0;
    /// Changes a run of bytes in place, whole words of 32 bits but for the last run; may be empty.
    std::function<void(char* data, qint64 bytes)> transform;

    /// Up to \p count bytes from \p position in the region on, which is that of a whole word, as
    /// they are after the transformation; fewer at the end.
    Result<QByteArray> bytesAt(qint64 position, qint64 count) const;
};

/// Reads all of \p region, each part for \p observe. A file that ends early is an error.
Status readAll(const Region& region, const CopyObserver& observe);

/// Copies all of \p region to \p sink, which messages call \p label. A file that was changed since
/// it was opened is an error. \p observe gets the data of each part if \p use says so.
Status copyPayload(const Region& region, QIODevice* sink, const QString& label,
                   PayloadCopy::Bytes use, const CopyObserver& observe);

/// The bytes of 0xFF behind an image that fill flash.
namespace Filler {

/// Writes \p bytes of them to \p sink, each part for \p observe. Messages call it \p label.
Status write(QIODevice* sink, qint64 bytes, const QString& label, const CopyObserver& observe);

/// Whether there is nothing else in \p region.
Result<bool> isIn(const Region& region);

} // namespace Filler

/// Finds the bytes in which two regions differ.
namespace FileCompare {

struct Difference {
    /// How many differ, as far as both regions go.
    qint64 count = 0;
    /// Of the first one, in bytes from the start of each region, or -1.
    qint64 offset = -1;
    /// The two bytes there, the first region's as found.
    QString expected;
    QString found;
};

/// Compares \p region with \p model, as far as both go. Calls \p observe for each part.
Result<Difference> compare(const Region& region, const Region& model, const CopyObserver& observe);

/// The first index at which the two differ; the end of the shorter one counts.
int firstDifference(const QByteArray& one, const QByteArray& other);

/// The byte at \p index for messages, or that the bytes end there.
QString byteAt(const QByteArray& bytes, int index);

} // namespace FileCompare

#endif
