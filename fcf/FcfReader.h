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
        /// The text ends, or passes the reader's bound, before its end mark. Texts not reached are
        /// empty; a function that was begun is the last one.
        EndedEarly
    };

    Outcome outcome = EndedEarly;
    FcfHeader header;
    /// Whether there is a description, be it an empty one. Its lines are joined by line feeds.
    bool hasDescription = false;
};

/// Reads a header page the way a form shows it, which is less than what was written: a value ends
/// at its second separator, and the lines of a function's description are joined.
namespace FcfReader {

/// What a hostile file can make the reader take, in bytes and functions. A text that has not ended
/// by then counts as one without an end.
const int MaximumBytes = 16 * 1024 * 1024;
/// A window shows all of every function, but only the start of the description before them.
const int MaximumFunctionBytes = 1024 * 1024;
const int MaximumFunctions = 30000;

/// Reads from the current position of \p device, an image or a companion; the payload is left
/// alone. A device that cannot be read counts as one that ends. Texts are decoded with \p codec,
/// which stays the caller's; null means the locale's.
FcfReading read(QIODevice* device, QTextCodec* codec = nullptr);

} // namespace FcfReader

#endif
