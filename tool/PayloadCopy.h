#ifndef TOOL_PAYLOADCOPY_H
#define TOOL_PAYLOADCOPY_H

#include <QtGlobal>

class InputFile;
class QIODevice;
class Session;
struct FileError;

/// Copies all of \p file from \p offset on, in bytes, and shows how far it is as the progress of
/// \p label. Returns false if it cannot be read or \p sink cannot be written; \p error says which,
/// and why, but keeps its path in the second case.
bool copyPayload(const InputFile& file, qint64 offset, const char* label, QIODevice* sink,
                 Session* session, FileError* error);

#endif
