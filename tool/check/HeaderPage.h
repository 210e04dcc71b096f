#ifndef TOOL_CHECK_HEADERPAGE_H
#define TOOL_CHECK_HEADERPAGE_H

#include "fcf/FcfExactReader.h"
#include "tool/base/Result.h"

class InputFile;
class QTextCodec;

/// The header page of an image or a companion, read exactly.
struct HeaderPage {
    FcfExactReading reading;
    /// Bytes of the page, filler included: where the payload of an image begins.
    int bytes = 0;

    /// Reads the page of \p file, and nothing behind it. Whatever is not as it should be is an
    /// error that ends a run with \p exitCode.
    static Result<HeaderPage> read(const InputFile& file, QTextCodec* codec, ExitCode exitCode);
};

#endif
