#include "tool/base/Result.h"

#include "tool/base/Text.h"

namespace {

/// A number of characters. The longest text that must be shown whole is a digest, with 64.
constexpr int LongestCompared = 64;

constexpr const char* SeverityNames[] = {"note", "warning", "error"};

} // namespace

Finding& Finding::at(qint64 where)
{
    offset = where;
    return *this;
}

Finding& Finding::comparing(const QString& isExpected, const QString& isFound)
{
    expected = shownText(isExpected, LongestCompared);
    found = shownText(isFound, LongestCompared);
    return *this;
}

QString Finding::wholeReason() const
{
    if (expected.isEmpty() && found.isEmpty())
        return reason;
    return QStringLiteral("%1; expected %2, found %3").arg(reason, expected, found);
}

QString Finding::text() const
{
    QString line = QLatin1String(SeverityNames[severity]) + ": ";
    if (!file.isEmpty())
        line += shownText(file) + ": ";

    if (!field.isEmpty())
        line += shownText(field);
    if (offset >= 0)
        line += QStringLiteral("%1offset %2").arg(field.isEmpty() ? "" : " at ").arg(offset);
    if (!field.isEmpty() || offset >= 0)
        line += ": ";

    return line + wholeReason();
}

QJsonObject Finding::toJson() const
{
    QJsonObject object;
    object["severity"] = SeverityNames[severity];
    object["file"] = file;
    object["field"] = field;
    object["reason"] = reason;
    if (offset >= 0)
        object["offset"] = offset;
    if (!expected.isEmpty() || !found.isEmpty()) {
        object["expected"] = expected;
        object["found"] = found;
    }
    return object;
}

tl::unexpected<Finding> failure(ExitCode exitCode, const QString& file, const QString& field,
                                const QString& reason)
{
    Finding finding;
    finding.exitCode = exitCode;
    finding.file = file;
    finding.field = field;
    finding.reason = reason;
    return tl::unexpected<Finding>(finding);
}
