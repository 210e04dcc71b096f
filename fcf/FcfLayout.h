#ifndef FCF_FCFLAYOUT_H
#define FCF_FCFLAYOUT_H

#include "fcf/FcfHeader.h"

#include <QtGlobal>

/// The header page, described once: the writer, the readers and every listing follow these tables.
///
/// A page is a binary preamble of big-endian 32-bit words, a line feed, lines of text each ended by
/// a line feed, and whole filler units up to the end of the page. The payload follows at once.
namespace FcfLayout {

/// Bytes of a flash page: 2048 of data and 64 spare. The header is counted as one page.
const int PageBytes = 2112;
/// Pages of a flash block.
const int BlockPages = 64;

/// Bytes of each word of the preamble.
const int WordBytes = 4;
const int NumberCount = 11;
const int ReservedWordCount = 5;
const quint32 ReservedWord = 0xFFFFFFFFu;
/// Bytes before the line feed that ends the preamble.
const int PreambleBytes = (NumberCount + ReservedWordCount) * WordBytes;

/// The three characters of a filler unit. They are written through the codec of the text.
const ushort FillerUnit[] = {0x00EF, 0x00BF, 0x00BD};
const int FillerUnitLength = 3;

/// Ends the header's own lines and each function's.
extern const char* const RecordEnd;
/// Ends the text. It contains RecordEnd, so look for it first.
extern const char* const TextEnd;
/// A first text line without it is not a header's.
extern const char* const FirstLineKeyword;

/// A signed 32-bit big-endian number of the preamble.
struct NumberField {
    const char* name;
    /// Bytes from the start of the page.
    int offset;
    qint32 FcfHeader::*value;
    const char* unit;
    const char* meaning;
};

enum Trimming { Untrimmed, Trimmed };

/// A text of the header or of a function: a line of \a prefix and value. A value may contain line
/// feeds, after which it simply goes on at the start of the next line.
template <class Record>
struct TextField {
    const char* name;
    /// Written exactly so before the value.
    const char* prefix;
    QString Record::*value;
    Trimming whenWritten;
    /// Whether the value may have several lines. Then it goes on up to a line with RecordEnd in it.
    bool hasLines;
    const char* meaning;
};

const int HeaderTextCount = 6;
const int FunctionTextCount = 4;

/// Each in the order of the file.
extern const NumberField Numbers[NumberCount];
extern const TextField<FcfHeader> HeaderTexts[HeaderTextCount];
extern const TextField<FcfFunction> FunctionTexts[FunctionTextCount];

} // namespace FcfLayout

#endif
