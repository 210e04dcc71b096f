#ifndef TOOL_FILES_REGION_H
#define TOOL_FILES_REGION_H

#include "fcf/PayloadCopy.h"
#include "tool/base/Result.h"

#include <QByteArray>

#include <functional>

class InputFile;

/// What is read or written at a time, in bytes.
constexpr int ChunkBytes = 1024 * 1024;

/// Called with each part of what is read or copied, in turn. Shows progress, or takes a digest.
using CopyObserver = PayloadCopy::Observer;

/// A part of a file, in bytes, and what is done to it on the way.
struct Region {
    /// Not owned.
    const InputFile* file = nullptr;
    qint64 offset = 0;
    qint64 bytes = 0;
    /// Changes a run of bytes in place, whole words of 32 bits but for the last run; may be empty.
    std::function<void(char* data, qint64 bytes)> transform;

    /// Up to \p count bytes from \p position in the region on, after the transformation; fewer at
    /// the end. The position is that of a whole word.
    Result<QByteArray> bytesAt(qint64 position, qint64 count) const;
};

/// Takes one part of a region. An error ends the reading.
using PartReader = std::function<Status(const char* data, qint64 bytes)>;

/// Reads all of \p region, each part for \p read. A file that ends early is an error.
Status readParts(const Region& region, const PartReader& read);

/// Reads all of \p region, each part for \p observe. A file that ends early is an error.
Status readAll(const Region& region, const CopyObserver& observe);

/// The field that errors of reading a region are about.
extern const QString PayloadField;

#endif
