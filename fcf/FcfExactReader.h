#ifndef FCF_FCFEXACTREADER_H
#define FCF_FCFEXACTREADER_H

#include "fcf/FcfHeader.h"

#include <QString>
#include <QVector>

class QIODevice;
class QTextCodec;

/// Where one text of a header page is.
struct FcfSpan {
    /// The name in FcfLayout, or null for what separates fields.
    const char* field;
    /// The index of the function that the text is of, or -1 for the header's own.
    int function;
    /// Where the value starts, in bytes from the start of the page.
    int offset;
    /// Bytes of the value that were read, with the line feeds in it but not the one that ends it.
    int length;
};

/// What an exact reading found: all that shows whether a page is what a writer wrote.
struct FcfExactReading {
    enum Outcome {
        /// The end of the text was reached.
        Complete,
        /// There is no text at all. Only the numbers are set, to 0 where they were missing.
        NoText,
        /// The first text line is not a header's. Only the numbers are set.
        NoFilenameLine,
        /// The text ends, or passes the reader's bound, before its end mark. Texts not reached are
        /// empty; a function that was begun is the last one.
        EndedEarly,
        /// A line is not what the page must have there; see `deviation`.
        Deviates
    };

    Outcome outcome = NoText;
    FcfHeader header;
    /// The five words after the numbers, as found.
    QVector<quint32> reservedWords;
    /// The texts that were reached, in the order of the file.
    QVector<FcfSpan> spans;
    /// Bytes from the start of the page to behind the text's end mark; of a complete reading.
    int textEnd = 0;

    /// Where the reading came to its end, what should have been there, and what was found. Set
    /// when it Deviates.
    FcfSpan deviation = {nullptr, -1, 0, 0};
    QString expected;
    QString found;
};

/// Reads a header page whole, and only lines that are what a writer writes: each with its prefix,
/// each ended by a line feed alone, each mark on a line of its own.
namespace FcfExactReader {

/// Bytes that a hostile file can make the reader take: more than fifteen pages.
const int MaximumBytes = 32 * 1024;

/// Reads from the current position of \p device, an image or a companion; the payload is left
/// alone. A device that cannot be read counts as one that ends. Texts are decoded with \p codec;
/// null means the locale's. Neither is owned.
FcfExactReading read(QIODevice* device, QTextCodec* codec = nullptr);

} // namespace FcfExactReader

#endif
