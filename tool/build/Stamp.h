#ifndef TOOL_BUILD_STAMP_H
#define TOOL_BUILD_STAMP_H

#include "tool/base/Result.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

/// Where the date and the time of an image come from.
namespace Stamp {

/// What --date-time says.
Result<QDateTime> given(const QString& text);

/// What SOURCE_DATE_EPOCH says, in UTC.
Result<QDateTime> sourceDate(const QByteArray& value);

enum class DateFormat { Locale, Iso };

/// What --date-format says.
Result<DateFormat> dateFormat(const QString& text);

} // namespace Stamp

#endif
