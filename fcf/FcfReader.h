#ifndef FCF_FCFREADER_H
#define FCF_FCFREADER_H

#include "FcfHeader.h"

#include <QCoreApplication>
#include <QStringList>

class QIODevice;
class QTextCodec;

/// Where one text of a header page stands.
struct FcfSpan {
    FcfSpan() : field(0), function(-1), offset(0) {}
    FcfSpan(const char* fieldName, int functionIndex, int valueOffset)
        : field(fieldName), function(functionIndex), offset(valueOffset)
    {
    }

    /// The name in FcfLayout, or null for what separates fields.
    const char* field;
    /// The index of the function that the text is of, or -1 for the header's own.
    int function;
    /// Of the value, in bytes from the start of the page.
    int offset;
};

/// What an exact reading adds: all that is needed to tell a page that a writer wrote from one that
/// was changed since.
struct FcfExactReading {
    FcfExactReading() : textEnd(0) {}

    /// The reserved words, as found.
    QVector<quint32> reservedWords;
    /// The texts that were reached, in the order of the file.
    QVector<FcfSpan> spans;
    /// Bytes from the start of the page to behind the text's end mark; of a complete reading.
    int textEnd;

    /// Where an incomplete reading came to its end, what should have stood there, and what did.
    FcfSpan deviation;
    QString expected;
    QString found;
};

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
        EndedEarly,
        /// Something stands where the page must have something else. Exact readings alone.
        Deviates
    };

    Outcome outcome = NoText;
    FcfHeader header;
    /// The lines of `header.description`.
    QStringList descriptionLines;
    /// Set by exact readings alone.
    FcfExactReading exact;
};

/// Reads a header page back, from an image or from a companion file; the payload is left alone.
class FcfReader {
    Q_DECLARE_TR_FUNCTIONS(FcfReader)

public:
    enum Rule {
        /// Takes what a form shows, which is less than what was written: a value is cut at its
        /// second separator, the lines of a function's description are joined. See FcfLayout for
        /// each field's rule.
        AsForm,
        /// Takes every value whole, and only lines that are what a writer writes: each with its
        /// prefix, each ended by a line feed alone, each mark on a line of its own.
        Exact
    };

    /// More than fifteen pages: what a hostile file can make a reader take. A text that has not
    /// ended by then never does.
    static const int MaximumBytes = 32 * 1024;

    /// Texts are decoded with \p codec, which stays the caller's; null stands for the locale's.
    explicit FcfReader(QTextCodec* codec = 0, Rule rule = AsForm);

    /// Reads from where \p device stands. A device that cannot be read counts as one that ends.
    FcfReading read(QIODevice* device) const;

private:
    QTextCodec* m_codec;
    Rule m_rule;
};

#endif
