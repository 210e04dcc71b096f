#ifndef TOOL_FILES_FILECOMPARE_H
#define TOOL_FILES_FILECOMPARE_H

#include "tool/files/Region.h"

#include <QByteArray>
#include <QString>

/// Finds the bytes in which two regions differ.
namespace FileCompare {

struct Difference {
    /// How many differ, as far as both regions go.
    qint64 count = 0;
    /// The offset of the first one, in bytes from the start of each region, or -1.
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
