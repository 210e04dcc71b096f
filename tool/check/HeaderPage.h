#ifndef TOOL_CHECK_HEADERPAGE_H
#define TOOL_CHECK_HEADERPAGE_H

#include "fcf/FcfExactReader.h"
#include "tool/base/Result.h"

#include <optional>

class InputFile;
class QTextCodec;

/// The header page of an image or a companion, read exactly.
struct HeaderPage {
    FcfExactReading reading;
    /// Bytes of the page, filler included: where the payload of an image begins.
    int bytes = 0;
    /// Bytes of an image's payload. Of an image that was read back from flash, `binFileSize` says
    /// where it ends, and nothing but 0xFF follows up to the end of a page, a block or a slot.
    qint64 payloadBytes = 0;
    /// Bytes of 0xFF that follow.
    qint64 fillerBytes = 0;

    /// Bytes of the whole image, without what follows.
    qint64 imageBytes() const { return bytes + payloadBytes; }

    /// Sets payloadBytes and fillerBytes as \p file, which the page was read from, has them.
    Status measure(const InputFile& file);

    /// What is wrong with a page in which bytes were replaced by escapes.
    std::optional<Finding> flaw;

    /// Whether bytes that the codec cannot decode are an error, or become escapes like \xff.
    enum Bytes { Exact, Escaped };

    /// Reads the page of \p file, and nothing behind it. Whatever is not as it should be is an
    /// error that ends a run with \p exitCode.
    static Result<HeaderPage> read(const InputFile& file, QTextCodec* codec, ExitCode exitCode,
                                   Bytes bytes = Exact);
};

#endif
