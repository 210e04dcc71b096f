#include "fcf/FcfHeader.h"

#include "fcf/FcfLayout.h"

#include <QLocale>

namespace {

template <class Field, int Count, class Record>
bool equalFields(const Field (&fields)[Count], const Record& left, const Record& right)
{
    for (const Field& field : fields) {
        if (left.*field.value != right.*field.value)
            return false;
    }
    return true;
}

} // namespace

bool operator==(const FcfFunction& left, const FcfFunction& right)
{
    return equalFields(FcfLayout::FunctionTexts, left, right);
}

bool operator!=(const FcfFunction& left, const FcfFunction& right) { return !(left == right); }

void FcfHeader::stamp(const QDateTime& moment)
{
    date = QLocale::system().toString(moment.date(), QLocale::ShortFormat);
    // Some locales have digits of their own, which no reader of the file takes for a time.
    time = QLocale::c().toString(moment.time(), QLatin1String("HH:mm:ss"));
}

bool operator==(const FcfHeader& left, const FcfHeader& right)
{
    return equalFields(FcfLayout::Numbers, left, right) &&
           equalFields(FcfLayout::HeaderTexts, left, right) && left.functions == right.functions;
}

bool operator!=(const FcfHeader& left, const FcfHeader& right) { return !(left == right); }
