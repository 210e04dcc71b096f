#ifndef FCF_FCFREADER_H
#define FCF_FCFREADER_H

#include "FcfHeader.h"

#include <QStringList>

class QIODevice;
class QTextCodec;

/// What a reading found, and how far it came.
struct FcfReading {
    enum Outcome {
        /// The end of the text was reached.
        Complete,
        /// The first text line is not a header's. Only the numbers are set.
        NoFilenameLine,
        /// There is no text at all. Only the numbers are set, to 0 where they were missing.
        NoText,
        /// The text ends, or passes the reader's bound, before its end mark. Texts not reached are
        /// empty; a function that was begun is the last one.
        EndedEarly
    };

    Outcome outcome = NoText;
    FcfHeader header;
    /// The lines of `header.description`.
    QStringList descriptionLines;
};

/// Reads a header page back, from an image or from a companion file; the payload is left alone.
///
/// It takes what a form shows, which is less than what was written: a value is cut at its second
/// separator, the lines of a function's description are joined. See FcfLayout for each field's
/// rule.
class FcfReader {
public:
    /// More than fifteen pages: what a hostile file can make a reader take. A text that has not
    /// ended by then never does.
    static const int MaximumBytes = 32 * 1024;

    /// Texts are decoded with \p codec, which stays the caller's; null stands for the locale's.
    explicit FcfReader(QTextCodec* codec = 0);

    /// Reads from where \p device stands. A device that cannot be read counts as one that ends.
    FcfReading read(QIODevice* device) const;

private:
    QTextCodec* m_codec;
};

#endif
