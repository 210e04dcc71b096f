#include "Findings.h"

#include <QStringList>

#include <algorithm>

namespace {

const char* nameOf(Finding::Severity severity)
{
    switch (severity) {
    case Finding::Note:
        return "note";
    case Finding::Warning:
        return "warning";
    case Finding::Error:
        break;
    }
    return "error";
}

/// In characters; a digest, the longest that must be whole, has 64.
constexpr int LongestCompared = 64;

/// The nearer to the front, the more it says about a run.
constexpr ExitCode Precedence[] = {ExitCode::Refused, ExitCode::CannotAccess,
                                   ExitCode::OutputExists, ExitCode::NotValid};

bool isHarmful(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    // Format characters can turn the direction of what follows.
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        // What stands for bytes that are no text.
        return character == QChar::ReplacementCharacter;
    }
}

} // namespace

QString shownText(const QString& text, int length)
{
    QString shown;
    for (const QChar character : text.left(length)) {
        const bool harmful = isHarmful(character);
        if (character == QLatin1Char('\n'))
            shown += QStringLiteral("\\n");
        else if (harmful)
            shown += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += character;
    }
    return text.size() > length ? shown + QStringLiteral("...") : shown;
}

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

QString Finding::text() const
{
    QString line = QLatin1String(nameOf(severity)) + QStringLiteral(": ");
    if (!file.isEmpty())
        line += shownText(file) + QStringLiteral(": ");
    if (!field.isEmpty())
        line += shownText(field);
    if (offset >= 0)
        line += QStringLiteral("%1offset %2").arg(field.isEmpty() ? "" : " at ").arg(offset);
    if (!field.isEmpty() || offset >= 0)
        line += QStringLiteral(": ");
    line += reason;
    if (!expected.isEmpty() || !found.isEmpty())
        line += QStringLiteral("; expected %1, found %2").arg(expected, found);
    return line;
}

QJsonObject Finding::toJson() const
{
    QJsonObject object;
    object["severity"] = nameOf(severity);
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

Finding& Findings::error(ExitCode exitCode, const QString& file, const QString& field,
                         const QString& reason)
{
    Finding& finding = add(Finding::Error, file, field, reason);
    finding.exitCode = exitCode;
    return finding;
}

Finding& Findings::warning(const QString& file, const QString& field, const QString& reason)
{
    return add(Finding::Warning, file, field, reason);
}

Finding& Findings::note(const QString& file, const QString& field, const QString& reason)
{
    return add(Finding::Note, file, field, reason);
}

Finding& Findings::add(Finding::Severity severity, const QString& file, const QString& field,
                       const QString& reason)
{
    Finding finding;
    finding.severity = severity;
    finding.file = file.isEmpty() ? m_subject : file;
    finding.field = field;
    finding.reason = reason;
    m_list.append(finding);
    return m_list.last();
}

void Findings::promoteWarnings()
{
    for (Finding& finding : m_list) {
        if (finding.severity != Finding::Warning)
            continue;
        finding.severity = Finding::Error;
        finding.exitCode = ExitCode::Refused;
    }
}

void Findings::dropNotes()
{
    const auto isNote = [](const Finding& finding) { return finding.severity == Finding::Note; };
    m_list.erase(std::remove_if(m_list.begin(), m_list.end(), isNote), m_list.end());
}

ExitCode Findings::exitCode(int first) const
{
    for (const ExitCode code : Precedence) {
        const bool occurs =
            std::any_of(m_list.begin() + first, m_list.end(),
                        [code](const Finding& finding) { return finding.exitCode == code; });
        if (occurs)
            return code;
    }
    return ExitCode::Done;
}

QJsonArray Findings::toJson() const
{
    QJsonArray array;
    for (const Finding& finding : m_list)
        array.append(finding.toJson());
    return array;
}
