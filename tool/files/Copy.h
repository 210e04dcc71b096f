#ifndef TOOL_FILES_COPY_H
#define TOOL_FILES_COPY_H

#include "fcf/PayloadCopy.h"
#include "tool/base/Result.h"

#include <QByteArray>

#include <optional>

class InputFile;
class QIODevice;

/// Called with each part of what is read or copied, in turn. Shows progress, or takes a digest.
using CopyObserver = PayloadCopy::Observer;

/// Writes all \p bytes bytes of \p data. Returns the reason why it could not, or an empty text.
QString writeAll(QIODevice* device, const char* data, qint64 bytes);

/// Writes all of \p bytes to \p sink, an output that messages call \p label.
Status writeAll(QIODevice* sink, const QByteArray& bytes, const QString& label);

/// Reads \p bytes bytes of \p file from \p offset on, in parts, and calls \p observe for each. A
/// file that ends before them is an error.
Status readAll(const InputFile& file, qint64 offset, qint64 bytes, const CopyObserver& observe);

/// Copies all of \p file from \p offset on to \p sink, which messages call \p label. A file that is
/// no more as long as it was when it was opened is an error. \p observe gets the data of each part
/// if \p use says so.
Status copyPayload(const InputFile& file, qint64 offset, QIODevice* sink, const QString& label,
                   PayloadCopy::Bytes use, const CopyObserver& observe);

/// Finds the first byte in which two files differ.
namespace FileCompare {

struct Difference {
    /// In bytes from the start of the first file.
    qint64 offset;
    /// The two bytes, the first file's as found.
    QString expected;
    QString found;
};

/// Compares \p file from \p start on with all of \p model, as far as both go. Calls \p observe for
/// each part.
Result<std::optional<Difference>> compare(const InputFile& file, qint64 start,
                                          const InputFile& model, const CopyObserver& observe);

/// The first index at which the two differ; the end of the shorter one counts.
int firstDifference(const QByteArray& one, const QByteArray& other);

/// The byte at \p index for messages, or that the bytes end there.
QString byteAt(const QByteArray& bytes, int index);

} // namespace FileCompare

#endif
