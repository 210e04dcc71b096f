#ifndef TOOL_CHECK_FILEKIND_H
#define TOOL_CHECK_FILEKIND_H

#include "tool/base/Result.h"

#include <QString>

/// What a file is, as far as that must be known before it is replaced.
namespace FileKind {

enum class Kind { Image, Companion, Digest };

/// What messages call a file of this kind.
QString nameOf(Kind kind);

/// Whether the file at \p path can be recognised as one of \p kind, damaged or not. An error if it
/// cannot be read.
Result<bool> isOfKind(const QString& path, Kind kind);

} // namespace FileKind

#endif
