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
        bytes += encoded(text(*findings, true), environment.codec);
    if (const ReadFile* const input = bytes.isEmpty() ? nullptr : inputs.behind(environment.out)) {
        findings->error(ExitCode::Refused, StandardOutputLabel, QString(), isInput(*input));
        bytes.clear();
    }
    if (m_isStreaming && isJson)
        bytes = "],\n" + bytes.mid(bytes.indexOf('\n') + 1);
    const auto written = writeAll(environment.out, bytes.constData(), bytes.size());
    if (!written)
        findings->error(
            ExitCode::CannotAccess, StandardOutputLabel, QString(),
            QStringLiteral("cannot be written: %1%2")
                .arg(written.error(), QLatin1String(isInPlace ? "; the files are in place" : "")));
    // When a message cannot be written there is nowhere left to say so.
    const QByteArray messages = encoded(text(*findings, false), environment.codec);
    writeAll(environment.err, messages.constData(), messages.size());
    return exitCode(*findings);
}

FileSystem::OrReason<void> Report::stream(const QByteArray& row, const Environment& environment)
{
    QByteArray bytes = row + (json ? "" : "\n");
    if (json)
        bytes.prepend(m_isStreaming ? ",\n" : "{\n\"files\": [\n");
    m_isStreaming = true;
    return writeAll(environment.out, bytes.constData(), bytes.size());
}

int Report::exitCode(const Findings& findings) const
{
    return static_cast<int>(Findings::weightier(findings.exitCode(), verdict));
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
        if (goesToOut(finding) == toOut)
            text += (toOut ? QString() : "pelk-fcf: ") + finding.text() + QLatin1Char('\n');
    }
    for (const QString& line : toOut && !json ? m_lines : QStringList())
        text += line + QLatin1Char('\n');
    return text;
}
