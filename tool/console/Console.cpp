#include "tool/console/Console.h"

#include "tool/base/Text.h"
#include "tool/check/Findings.h"
#include "tool/files/InputFile.h"

#include <QJsonDocument>

namespace {

constexpr qint64 PatienceMilliseconds = 1000;
/// A terminal is not to be kept busier than an eye can follow.
constexpr qint64 IntervalMilliseconds = 100;
constexpr double Mebibyte = 1024 * 1024;

class Line {
public:
    Line(const Environment* environment, const QString& label, qint64 total)
        : m_environment(environment), m_label(label), m_total(total),
          m_nextShow(environment->milliseconds() + PatienceMilliseconds + 1)
    {
    }

    ~Line()
    {
        if (!m_shown.isEmpty())
            write("\r\033[K");
    }
    Q_DISABLE_COPY(Line)

    void advance(qint64 bytes)
    {
        m_done += bytes;
        const qint64 now = m_environment->milliseconds();
        const QString text = state();
        if (now < m_nextShow || text == m_shown)
            return;
        m_shown = text;
        m_nextShow = now + IntervalMilliseconds;
        write(QStringLiteral("\r%1: %2").arg(m_label, text).toLocal8Bit());
    }

private:
    void write(const QByteArray& bytes) const { writeAll(m_environment->err, bytes); }

    QString state() const
    {
        if (m_total == Progress::Unknown)
            return QStringLiteral("%1 MiB").arg(static_cast<double>(m_done) / Mebibyte, 0, 'f', 1);
        const qint64 percent = m_total > 0 ? qMin(m_done, m_total) * 100 / m_total : 0;
        return QStringLiteral("%1 %").arg(percent);
    }

    const Environment* m_environment;
    QString m_label;
    qint64 m_total;
    qint64 m_done = 0;
    /// In milliseconds; before it nothing is shown.
    qint64 m_nextShow;
    QString m_shown;
};

} // namespace

CopyObserver Progress::observer(const Environment* environment, const QString& label, qint64 total)
{
    if (!environment->errIsTerminal)
        return [](const char*, qint64) {};
    const auto line = std::make_shared<Line>(environment, label, total);
    return [line](const char*, qint64 bytes) { line->advance(bytes); };
}

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
    const auto written = writeAll(environment.out, bytes);
    if (!written)
        findings->error(
            ExitCode::CannotAccess, StandardOutputLabel, QString(),
            QStringLiteral("cannot be written: %1%2")
                .arg(written.error(), QLatin1String(isInPlace ? "; the files are in place" : "")));
    // When a message cannot be written there is nowhere left to say so.
    writeAll(environment.err, encoded(text(*findings, false), environment.codec));
    return exitCode(*findings);
}

FileSystem::OrReason<void> Report::stream(const QByteArray& row, const Environment& environment)
{
    QByteArray bytes = row + (json ? "" : "\n");
    if (json)
        bytes.prepend(m_isStreaming ? ",\n" : "{\n\"files\": [\n");
    m_isStreaming = true;
    return writeAll(environment.out, bytes);
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
