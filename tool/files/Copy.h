#ifndef TOOL_FILES_COPY_H
#define TOOL_FILES_COPY_H

#include "tool/files/FileSystem.h"
#include "tool/files/Region.h"

#include <QByteArray>

class QIODevice;

/// Writes all of \p bytes.
FileSystem::OrReason<void> writeBytes(QIODevice* device, const QByteArray& bytes);

/// Writes all of \p bytes to \p output, which messages call \p label.
Status writeOutput(QIODevice* output, const QByteArray& bytes, const QString& label);

/// Copies all of \p region to \p output, which messages call \p label. A file that was changed
/// since it was opened is an error. \p observe gets the data of each part if \p use is Seen.
Status copyPayload(const Region& region, QIODevice* output, const QString& label,
                   PayloadCopy::Bytes use, const CopyObserver& observe);

#endif
