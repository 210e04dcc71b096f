#include "host/app/image/ToolRun.h"

#include "tool/commands/CommandLine.h"
#include "tool/console/Environment.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextCodec>

namespace {

/// The text of a finding. All files of a run of the host are in one folder, so that their names say
/// enough, and the names of options say nothing to somebody who uses the host.
QString textOf(const QJsonObject& finding)
{
    QStringList parts{QFileInfo(finding["file"].toString()).fileName()};
    const QString field = finding["field"].toString();
    if (!field.isEmpty() && !field.startsWith("--"))
        parts << field;
    if (finding.contains("offset"))
        parts << QString("offset %1").arg(finding["offset"].toInt());
    parts << finding["reason"].toString();

    QString text = parts.join(": ");
    if (finding.contains("expected"))
        text += QString("; expected %1, found %2")
                    .arg(finding["expected"].toString(), finding["found"].toString());
    return text;
}

} // namespace

ToolRun ToolRun::of(const QStringList& arguments)
{
    QBuffer in;
    QBuffer out;
    QBuffer err;
    in.open(QIODevice::ReadOnly);
    out.open(QIODevice::WriteOnly);
    err.open(QIODevice::WriteOnly);
    QElapsedTimer timer;
    timer.start();

    Environment environment;
    environment.in = &in;
    environment.out = &out;
    environment.err = &err;
    environment.milliseconds = [&timer] { return timer.elapsed(); };
    environment.codec = QTextCodec::codecForLocale();

    std::vector<std::string> encoded;
    for (const QString& argument : arguments)
        encoded.push_back(QFile::encodeName(argument).toStdString());
    encoded.push_back("--json");
    runCommandLine(encoded, environment);

    ToolRun run;
    run.report = QJsonDocument::fromJson(out.data()).object();
    const QJsonArray findings = run.report["findings"].toArray();
    for (const auto& value : findings) {
        const QJsonObject finding = value.toObject();
        if (finding["severity"] == "error")
            run.errors << textOf(finding);
        else if (finding["severity"] == "warning")
            run.warnings << textOf(finding);
    }
    // Nothing but a fault of the program itself leaves out the report.
    if (run.report.isEmpty())
        run.errors << QString::fromLocal8Bit(err.data()).trimmed();
    return run;
}
