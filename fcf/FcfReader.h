#ifndef FCF_FCFREADER_H
#define FCF_FCFREADER_H

#include "fcf/FcfHeader.h"

class QIODevice;
class QTextCodec;

/// What the generator window reads from a header page, and how far it came.
struct FcfReading {
    enum Outcome {
        /// The end of the text was reached.
        Complete,
        /// The first text line is not a header's, or there is none. Only the numbers are set, to 0
        /// where they were missing.
        NoFilenameLine,

        // The end mark was not reached. Texts that come after the place are empty; a function that
        // was begun is the last one.

        /// The device has no more bytes.
        EndedEarly,
        /// The device cannot be read any further; it has the reason.
        ReadFailed,
        /// There are more than FcfReader::MaximumBytes.
        TooLong,
        /// The functions take more than FcfReader::MaximumFunctionBytes.
        FunctionsTooLong,
        /// There are more than FcfReader::MaximumFunctions.
        TooManyFunctions
    };

    Outcome outcome = EndedEarly;
    FcfHeader header;
    /// Whether there is a description, be it an empty one. Its lines are joined by line feeds.
    bool hasDescription = false;
};

/// Reads a header page the way a form shows it, which is less than what was written: a value ends
/// at its second separator, and the lines of a function's description are joined.
namespace FcfReader {

/// What a hostile file can make the reader take, in bytes and functions.
const int MaximumBytes = 16 * 1024 * 1024;
/// A window shows all of every function, but only the start of the description before them.
const int MaximumFunctionBytes = 1024 * 1024;
const int MaximumFunctions = 30000;

/// Reads from the current position of \p device, an image or a companion; the payload is left
/// alone. Texts are decoded with \p codec; null means the locale's. Neither is owned.
FcfReading read(QIODevice* device, QTextCodec* codec = nullptr);

} // namespace FcfReader

#endif
