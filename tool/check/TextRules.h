#ifndef TOOL_CHECK_TEXTRULES_H
#define TOOL_CHECK_TEXTRULES_H

#include "fcf/FcfHeader.h"

#include <QString>
#include <QVector>

class QTextCodec;

/// What a text of a header may be: before a page is composed, and when one was read.
namespace TextRules {

/// A text, and what is wrong with it.
struct Breach {
    /// Its name as fieldName() gives it.
    QString field;
    QString reason;
    /// The text.
    QString value;
};

/// How messages and JSON call a text of the header (with \p function -1) or of one function.
QString fieldName(const char* field, int function);

/// The texts of \p header that would break the records of the page: line breaks, marks, control
/// characters.
QVector<Breach> brokenRecords(const FcfHeader& header);

/// The texts of \p header in which a line begins like a function: the mark before it may be
/// damaged.
QVector<Breach> swallowedFunctions(const FcfHeader& header);

/// The texts of \p header in which a reader does not see all that is there, or not in its order.
QVector<Breach> unprintable(const FcfHeader& header);

/// The texts of \p header that \p codec has no bytes for.
QVector<Breach> notEncodable(const FcfHeader& header, const QTextCodec* codec);

/// The texts of \p header of which a form that loads it shows less than there is.
QVector<Breach> lostInForm(const FcfHeader& header, QTextCodec* codec);

/// Which texts take up how many bytes of the page with their labels, the largest three first, and
/// how many the rest of it takes.
QString largestShares(const FcfHeader& header, QTextCodec* codec);

} // namespace TextRules

#endif
