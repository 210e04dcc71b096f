#include "Stamp.h"

#include "fcf/FcfHeader.h"
#include "tool/Session.h"

#include <QRegularExpression>

namespace {

const QString DateFormat = QStringLiteral("yyyy-MM-dd");
const QString TimeFormat = QStringLiteral("HH:mm:ss");
/// The last second of the year 9999, so that a date keeps its form.
constexpr qint64 LastSecond = 253402300799;

} // namespace

void Stamp::apply(FcfHeader* header, Session* session) const
{
    const std::optional<QDateTime> sourceMoment = sourceDate(session);
    const std::optional<QDateTime> givenMoment = given(session);
    const QDateTime moment = givenMoment    ? *givenMoment
                             : sourceMoment ? *sourceMoment
                                            : session->environment().clock();
    header->stamp(moment);
    if (dateFormat == QStringLiteral("iso"))
        header->date = moment.date().toString(Qt::ISODate);
    else if (dateFormat && dateFormat != QStringLiteral("locale"))
        session->findings.error(
            ExitCode::Refused, QString(), QStringLiteral("--date-format"),
            QStringLiteral("\"%1\" is neither \"locale\" nor \"iso\"").arg(shownText(*dateFormat)));
}

std::optional<QDateTime> Stamp::given(Session* session) const
{
    if (!dateTime)
        return std::nullopt;
    // In UTC, which has every time of day: a local clock that is put forward leaves some out.
    const QDate date = QDate::fromString(dateTime->left(DateFormat.size()), DateFormat);
    const QTime time = QTime::fromString(dateTime->right(TimeFormat.size()), TimeFormat);
    // Qt would take signs, letters and less than there must be.
    static const QRegularExpression digits(
        QStringLiteral("^[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\z"));
    if (digits.match(*dateTime).hasMatch() && date.isValid() && time.isValid())
        return QDateTime(date, time, Qt::UTC);
    session->findings.error(ExitCode::Refused, QString(), QStringLiteral("--date-time"),
                            QStringLiteral("\"%1\" is not a date and time like "
                                           "2024-05-31T13:45:00")
                                .arg(shownText(*dateTime)));
    return std::nullopt;
}

std::optional<QDateTime> Stamp::sourceDate(Session* session)
{
    const auto& value = session->environment().sourceDateEpoch;
    if (!value)
        return std::nullopt;
    const QString text = QString::fromLatin1(*value);
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,12}\\z"));
    const qint64 seconds = text.toLongLong();
    if (digits.match(text).hasMatch() && seconds <= LastSecond)
        return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    session->findings.error(
        ExitCode::Refused, QString(), QStringLiteral("SOURCE_DATE_EPOCH"),
        QStringLiteral("\"%1\" is not a number of seconds since 1970, up to the year 9999")
            .arg(shownText(text)));
    return std::nullopt;
}
