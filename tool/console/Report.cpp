#include "tool/console/Report.h"

#include "tool/base/Text.h"
#include "tool/check/Findings.h"
#include "tool/console/Environment.h"
#include "tool/files/InputOpener.h"

#include <QJsonDocument>

int Report::finish(const Environment& environment, const InputOpener& inputs,
                   Findings* findings) const
{
    if (quiet)
        findings->dropNotes();

    QByteArray bytes = resultBytes(*findings, environment);
    const ProtectedInput* const input = inputs.behind(environment.out);
    if (input && !bytes.isEmpty()) {
        findings->refuse(StandardOutputLabel, QString(), input->refusal());
        bytes.clear();
    }
    if (const auto written = writeBytes(environment.out, bytes); !written)
        findings->error(ExitCode::CannotAccess, StandardOutputLabel, QString(),
                        notWritten(written.error()));

    // When a message cannot be written there is nowhere left to report it.
    writeBytes(environment.err, encoded(text(*findings, false), environment.codec));
    return exitCode(*findings);
}

/// All that goes to standard output at the end of the run.
QByteArray Report::resultBytes(const Findings& findings, const Environment& environment) const
{
    if (outIsTaken)
        return m_raw;
    if (!json)
        return m_raw + encoded(text(findings, true), environment.codec);
    if (!m_raw.isEmpty())
        return m_raw;

    QByteArray object = jsonBytes(findings);
    if (!m_isStreaming)
        return object;
    // The object was opened when the first row was written.
    return "],\n" + object.mid(object.indexOf('\n') + 1);
}

QString Report::notWritten(const QString& reason) const
{
    const QString place = isInPlace ? "; the files are in place" : "";
    return QStringLiteral("cannot be written: %1%2").arg(reason, place);
}

FileSystem::OrReason<void> Report::stream(const QByteArray& row, const Environment& environment)
{
    QByteArray bytes = row + (json ? "" : "\n");
    if (json)
        bytes.prepend(m_isStreaming ? ",\n" : "{\n\"files\": [\n");

    m_isStreaming = true;
    return writeBytes(environment.out, bytes);
}

int Report::exitCode(const Findings& findings) const
{
    return static_cast<int>(Findings::moreImportant(findings.exitCode(), verdict));
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
    object["exitCode"] = exitCode(findings);
    object["findings"] = findings.toJson();
    return asPrintable(QJsonDocument(object).toJson());
}

QString Report::text(const Findings& findings, bool toOut) const
{
    QString text;
    for (const Finding& finding : findings.list()) {
        if (goesToOut(finding) != toOut)
            continue;
        if (!toOut)
            text += "pelk-fcf: ";
        text += finding.text() + QLatin1Char('\n');
    }
    if (!toOut || json)
        return text;

    for (const QString& line : m_lines)
        text += line + QLatin1Char('\n');
    return text;
}
