#include "generator/WordWrap.h"

#include <QString>

namespace {

/// UTF-16 units.
const int LongestWord = 1000;

} // namespace

QTextOption::WrapMode WordWrap::modeFor(const QString& text)
{
    int start = 0;
    for (int end = 0; end < text.size(); ++end) {
        if (text.at(end).isSpace())
            start = end + 1;
        else if (end - start >= LongestWord)
            return QTextOption::WrapAnywhere;
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}
