#ifndef TOOL_HEADERPAGE_H
#define TOOL_HEADERPAGE_H

#include "fcf/FcfExactReader.h"
#include "tool/Findings.h"

class InputFile;
class QTextCodec;
class Session;

/// The header page of an image or a companion, read exactly.
struct HeaderPage {
    FcfExactReading reading;
    /// Bytes of the page, filler included: where the payload of an image begins.
    int bytes = 0;

    /// Reads the page of \p file. Whatever is not as it should be becomes an error that ends the
    /// run with \p exitCode, and nothing behind it is read.
    bool read(InputFile* file, ExitCode exitCode, Session* session);
};

#endif
