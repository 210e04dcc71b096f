#include "tool/console/Report.h"

#include "tool/base/Text.h"
#include "tool/check/Findings.h"
#include "tool/console/Console.h"
#include "tool/files/InputFile.h"

#include <QJsonDocument>

QString isInput(const ReadFile& input)
{
    return QStringLiteral("is the input itself, \"%1\"").arg(shownText(input.label));
}

int Report::finish(const Environment& environment, const Inputs& inputs, Findings* findings) const
{
    if (quiet)
        findings->dropNotes();
    const bool isJson = json && m_raw.isEmpty() && !outIsTaken;
    QByteArray bytes = m_raw;
    if (isJson)
        bytes = jsonBytes(*findings);
    else if (!outIsTaken)
        bytes += encoded(lines(*findings), environment.codec);
    if (const ReadFile* const input = bytes.isEmpty() ? nullptr : inputs.behind(environment.out)) {
        findings->error(ExitCode::Refused, StandardOutputLabel, QString(), isInput(*input));
        bytes.clear();
    }
    const QString reason = writeAll(environment.out, bytes.constData(), bytes.size());
    if (!reason.isEmpty())
        findings->error(ExitCode::CannotAccess, StandardOutputLabel, QString(),
                        QStringLiteral("cannot be written: %1").arg(reason));
    // When a message cannot be written there is nowhere left to say so.
    const QByteArray text = encoded(messages(*findings), environment.codec);
    writeAll(environment.err, text.constData(), text.size());
    return static_cast<int>(findings->exitCode());
}

bool Report::goesToOut(const Finding& finding) const
{
    const bool isResult =
        finding.severity != Finding::Error || finding.exitCode == ExitCode::NotValid;
    return findingsAreResults && isResult && !json;
}

QByteArray Report::jsonBytes(const Findings& findings) const
{
    QJsonObject object = result;
    object["schema"] = SchemaVersion;
    object["command"] = m_command;
    object["exitCode"] = static_cast<int>(findings.exitCode());
    object["findings"] = findings.toJson();
    return QJsonDocument(object).toJson();
}

QString Report::lines(const Findings& findings) const
{
    QString text;
    for (const Finding& finding : findings.list()) {
        if (goesToOut(finding))
            text += finding.text() + QLatin1Char('\n');
    }
    for (const QString& line : m_lines)
        text += json ? QString() : line + QLatin1Char('\n');
    return text;
}

QString Report::messages(const Findings& findings) const
{
    QString text;
    for (const Finding& finding : findings.list()) {
        if (!goesToOut(finding))
            text += QStringLiteral("pelk-fcf: %1\n").arg(finding.text());
    }
    return text;
}
