#ifndef TOOL_FILES_FILLER_H
#define TOOL_FILES_FILLER_H

#include "tool/files/Region.h"

class QIODevice;

/// The bytes of 0xFF behind an image that fill flash.
namespace Filler {

/// Writes \p bytes of them to \p output, each part for \p observe. Messages call it \p label.
Status write(QIODevice* output, qint64 bytes, const QString& label, const CopyObserver& observe);

/// How many of the first bytes of \p region are such.
Result<qint64> count(const Region& region);

/// Whether there is nothing else in \p region.
Result<bool> isIn(const Region& region);

} // namespace Filler

#endif
