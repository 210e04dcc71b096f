#include "tool/commands/TimestampOptions.h"

#include "fcf/FcfHeader.h"
#include "tool/base/Text.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Task.h"

#include <QRegularExpression>

namespace {

const QString DatePattern = "yyyy-MM-dd";
const QString TimePattern = "HH:mm:ss";
/// The time follows the date and a T.
constexpr int TimeStart = 11;
/// The last second of the year 9999, so that a date keeps its form.
constexpr qint64 LastSecond = 253402300799;

/// What --date-time gives, as a time in UTC, which has every time of day: a local clock that is put
/// forward leaves some out.
Result<QDateTime> givenTime(const QString& text)
{
    const QDate date = QDate::fromString(text.left(DatePattern.size()), DatePattern);
    const QTime time = QTime::fromString(text.mid(TimeStart, TimePattern.size()), TimePattern);

    // An offset from UTC, as version control systems write it, does not change the time of day.
    // Qt alone would accept signs, letters and texts that are too short.
    static const QRegularExpression digits("^[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}"
                                           "(Z|[+-][0-9]{2}:[0-9]{2})?\\z");
    if (digits.match(text).hasMatch() && date.isValid() && time.isValid())
        return QDateTime(date, time, Qt::UTC);

    return failure(ExitCode::Refused, QString(), "--date-time",
                   QStringLiteral("\"%1\" is not a date and time like 2024-05-31T13:45:00")
                       .arg(shownText(text)));
}

/// What SOURCE_DATE_EPOCH gives, in UTC.
Result<QDateTime> sourceDate(const QByteArray& value)
{
    const QString text = QString::fromLatin1(value);
    static const QRegularExpression digits("^[0-9]{1,12}\\z");
    const qint64 seconds = text.toLongLong();
    if (digits.match(text).hasMatch() && seconds <= LastSecond)
        return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);

    return failure(
        ExitCode::Refused, QString(), "SOURCE_DATE_EPOCH",
        QStringLiteral("\"%1\" is not a number of seconds since 1970, up to the year 9999")
            .arg(shownText(text)));
}

} // namespace

void TimestampOptions::declare(CLI::App* app)
{
    Arguments::addOption(app, "--date-time", &m_dateTime, "YYYY-MM-DDTHH:MM:SS",
                         "the date and time in the header (default: SOURCE_DATE_EPOCH in UTC, or "
                         "without that the clock)");
    Arguments::addOption(app, "--date-format", &m_dateFormat, "locale|iso",
                         "how the date is written (default: locale)");
}

void TimestampOptions::stamp(FcfHeader* header, Task* task) const
{
    Findings& findings = task->findings;

    QDateTime moment = task->environment.clock();
    if (const auto& source = task->environment.sourceDateEpoch)
        moment = findings.valueOf(sourceDate(*source)).value_or(moment);
    if (const auto text = m_dateTime ? task->text(*m_dateTime, "--date-time") : std::nullopt)
        moment = findings.valueOf(givenTime(*text)).value_or(moment);
    header->stamp(moment);

    const auto format = m_dateFormat ? task->text(*m_dateFormat, "--date-format") : std::nullopt;
    if (format == "iso")
        header->date = moment.date().toString(Qt::ISODate);
    else if (format && format != "locale")
        task->refuse(
            "--date-format",
            QStringLiteral("\"%1\" is neither \"locale\" nor \"iso\"").arg(shownText(*format)));
}
