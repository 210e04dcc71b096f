#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/build/Build.h"
#include "tool/check/Validator.h"
#include "tool/commands/BesideFiles.h"
#include "tool/commands/Command.h"
#include "tool/files/Digest.h"

#include <QDir>
#include <QJsonDocument>
#include <QMap>
#include <QRegularExpression>

namespace {

/// The name of a column in JSON and CSV, its heading in the table, and its width there.
struct Column {
    const char* name;
    const char* heading;
    int width;
};

constexpr Column Columns[] = {
    {"module", "MODULE", 6},   {"device", "DEVICE", 19},   {"configNumber", "SLOT", 4},
    {"version", "VERSION", 7}, {"author", "AUTHOR", 12},   {"ciNumber", "CI", 8},
    {"date", "DATE", 11},      {"time", "TIME", 8},        {"bytes", "BYTES", 9},
    {"sha256", "SHA-256", 12}, {"verdict", "VERDICT", 11}, {"file", "FILE", 0},
    {"reason", "REASON", 0},
};

/// Lists images, each as soon as it was read: nothing is kept of one but its slot.
class ListCommand : public Command {
public:
    explicit ListCommand(CLI::App* parent)
        : Command(parent, "list", "List images and the images in folders, one line each")
    {
        Argument::addOperands(app, "PATH", &m_paths,
                              "images, and folders, which are searched for .fcf files");
        Argument::addFlag(app, "--csv", &m_csv,
                          "give the result as comma-separated values, with a heading");
        Argument::addFlag(
            app, "--digest", &m_digest,
            "compute each SHA-256, and compare it with the one beside the image (default: "
            "only the header page is read)");
    }
    void run(Task* task) override;

private:
    void list(const QFileInfo& path, Task* task);
    void listImage(const QString& path, Task* task);
    QJsonObject describe(const FcfFile& fcf, Task* task);
    QByteArray digest(const FcfFile& fcf, Task* task) const;
    void print(const QJsonObject& row, Task* task);
    QByteArray line(const QJsonObject& row, const Task& task) const;
    void stop(ExitCode code, const QString& reason, Task* task);

    struct Slot {
        QString first;
        QString last;
        int count = 0;
    };

    std::vector<std::string> m_paths;
    bool m_csv = false;
    bool m_digest = false;
    bool m_isEmpty = true;
    /// Whether nobody gets the result.
    bool m_isStopped = false;
    /// By module, device and number.
    QMap<QString, Slot> m_slots;
};

void ListCommand::run(Task* task)
{
    task->report.findingsAreResults = !m_csv;
    for (const std::string& argument : m_paths) {
        const std::optional<QString> path = task->path(argument, "PATH");
        if (path == StandardStream)
            task->refuse("PATH", "standard input cannot be listed; show reads it");
        else if (path)
            list(QFileInfo(*path), task);
    }
    if (m_isEmpty)
        task->report.result["files"] = QJsonArray();
    for (auto slot = m_slots.cbegin(); slot != m_slots.cend(); ++slot) {
        if (slot->count > 1)
            task->findings.error(ExitCode::NotValid, slot->first, "configNumber",
                                 QStringLiteral("%1 is that of %2 images, among them %3")
                                     .arg(slot.key())
                                     .arg(slot->count)
                                     .arg(shownText(slot->last)));
    }
}

/// An image, or what is in a folder, sorted by name at each level.
void ListCommand::list(const QFileInfo& path, Task* task)
{
    if (!path.isDir()) {
        listImage(path.filePath(), task);
        return;
    }
    const QDir folder(path.filePath());
    if (!folder.isReadable())
        task->findings.error(ExitCode::CannotAccess, folder.path(), "PATH",
                             "the folder cannot be read");
    const auto wanted = QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : folder.entryInfoList({"*.fcf"}, wanted, QDir::Name)) {
        // A link to a folder may lead back here.
        if (!entry.isDir() || !entry.isSymLink())
            list(entry, task);
    }
}

void ListCommand::listImage(const QString& path, Task* task)
{
    if (m_isStopped)
        return;
    // Whatever is found in one image goes into its own line.
    Task one(&task->environment, std::string());
    one.report.quiet = true;
    const auto fcf =
        one.openFcf(QFile::encodeName(path).toStdString(), m_digest ? Task::Whole : Task::PageOnly);
    if (const ReadFile* const input = one.inputs.behind(task->environment.out)) {
        stop(ExitCode::Refused, isInput(*input), task);
        return;
    }
    QJsonObject row = fcf ? describe(*fcf, &one) : QJsonObject();
    row["file"] = path;
    const ExitCode code = one.findings.exitCode();
    if (code != ExitCode::Done)
        row["verdict"] = code == ExitCode::NotValid ? "not valid" : "unreadable";
    for (const Finding& finding : one.findings.list()) {
        if (finding.severity == Finding::Error && !row.contains("reason"))
            row["reason"] =
                (code == ExitCode::NotValid ? finding.field + ": " : QString()) + finding.reason;
    }
    task->report.verdict = Findings::weightier(task->report.verdict, code);
    print(row, task);
}

QJsonObject ListCommand::describe(const FcfFile& fcf, Task* task)
{
    HeaderPage page = fcf.page;
    const FcfHeader& header = page.reading.header;
    const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
    // Without --digest nothing behind the page is read.
    const qint64 behind = fcf.file.size() - page.bytes - header.binFileSize;
    if (!m_digest)
        page.payloadBytes = qMin<qint64>(header.binFileSize, fcf.file.size() - page.bytes);
    Validator(&fcf.file, Validator::Image, task->codec, &task->findings).validate(page);
    QJsonObject row{{"module", target ? QJsonValue(target->module) : QJsonValue()},
                    {"device", target ? QJsonValue(target->device) : QJsonValue()},
                    {"configNumber", header.configNumber},
                    {"version", Version{header.versionMajor, header.versionMinor}.text()},
                    {"author", header.author},
                    {"ciNumber", header.ciNumber},
                    {"date", header.date},
                    {"time", header.time},
                    {"bytes", fcf.file.size()},
                    {"verdict", "valid"}};
    if (const QByteArray sha256 = digest(fcf, task); !sha256.isEmpty())
        row["sha256"] = QString::fromLatin1(sha256.toHex());
    if (!m_digest && behind > 0) {
        row["verdict"] = "not checked";
        row["reason"] = QStringLiteral("%1 bytes follow the payload").arg(behind);
    }
    if (target && header.configNumber >= FcfTarget::FirstSlot &&
        header.configNumber <= FcfTarget::LastSlot) {
        Slot& slot = m_slots[QStringLiteral("%1 %2 slot %3")
                                 .arg(QLatin1String(target->module), QLatin1String(target->device))
                                 .arg(header.configNumber)];
        slot.last = fcf.file.path();
        slot.first = slot.count++ == 0 ? slot.last : slot.first;
    }
    return row;
}

/// The one beside the image, else with --digest the image's own. Empty if there is none.
QByteArray ListCommand::digest(const FcfFile& fcf, Task* task) const
{
    const QString path = Digest::pathFor(fcf.file.path());
    if (!QFileInfo(path).isFile() && !m_digest)
        return QByteArray();
    if (!QFileInfo(path).isFile())
        return task->findings
            .valueOf(Digest::of({&fcf.file, 0, fcf.file.size(), nullptr}, [](auto, auto) {}))
            .value_or(QByteArray());
    if (m_digest)
        BesideFiles().checkDigest(fcf.file, fcf.page, task);
    const auto lines = task->bytesOf(path, Digest::MaximumBytes, "digest");
    return Digest::find(lines.value_or(QByteArray()), std::nullopt).value(0);
}

void ListCommand::print(const QJsonObject& row, Task* task)
{
    QByteArray bytes = line(row, *task);
    if (task->report.json) {
        bytes = asPrintable(QJsonDocument(row).toJson(QJsonDocument::Compact));
    } else if (m_isEmpty) {
        QJsonObject headings;
        for (const Column& column : Columns)
            headings[column.name] = m_csv ? column.name : column.heading;
        bytes.prepend(line(headings, *task) + '\n');
    }
    m_isEmpty = false;
    const auto written = task->report.stream(bytes, task->environment);
    if (!written)
        stop(ExitCode::CannotAccess, "cannot be written: " + written.error(), task);
}

QByteArray ListCommand::line(const QJsonObject& row, const Task& task) const
{
    static const QRegularExpression special("[,\"]");
    QStringList cells;
    for (const Column& column : Columns) {
        const QJsonValue value = row[column.name];
        QString text = value.isDouble() ? QString::number(value.toVariant().toLongLong())
                                        : shownText(value.toString(), WholeText);
        if (m_csv && text.contains(special))
            text = QLatin1Char('"') + text.replace(QLatin1Char('"'), "\"\"") + QLatin1Char('"');
        // The table has the first digits of a digest alone.
        const bool isCut = qstrcmp(column.name, "sha256") == 0;
        if (!m_csv && column.width > 0)
            text = (text.isEmpty() ? "-" : text).leftJustified(column.width, ' ', isCut);
        cells << text;
    }
    const QString line = cells.join(m_csv ? "," : "  ");
    return encoded(m_csv ? line : line.trimmed(), task.codec);
}

void ListCommand::stop(ExitCode code, const QString& reason, Task* task)
{
    task->findings.error(code, StandardOutputLabel, QString(), reason);
    task->report.outIsTaken = true;
    m_isStopped = true;
}

} // namespace

CommandPointer listCommand(CLI::App* app) { return std::make_unique<ListCommand>(app); }
