#include "PayloadCopy.h"

#include "fcf/FcfWriter.h"
#include "tool/FileError.h"
#include "tool/InputFile.h"
#include "tool/Progress.h"

bool copyPayload(const InputFile& file, qint64 offset, const char* label, QIODevice* sink,
                 Session* session, FileError* error)
{
    const qint64 bytes = file.size() - offset;
    Progress progress(session, QLatin1String(label), bytes);
    InputSource source(&file, offset);
    MeteredSource payload(&source, &progress);
    if (FcfWriter::copyPayload(&payload, bytes, sink, &error->reason))
        return true;
    if (source.isAtFault()) {
        error->path = file.label();
        error->isInput = true;
    }
    return false;
}
