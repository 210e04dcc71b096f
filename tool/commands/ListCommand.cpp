#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Command.h"
#include "tool/commands/SidecarOptions.h"
#include "tool/files/Digest.h"
#include "tool/files/DigestList.h"
#include "tool/recipe/Recipe.h"

#include <QDir>
#include <QJsonDocument>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <set>

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

/// The reason in a row for \p findings, which end a run with \p code.
QString reasonFor(const Findings& findings, ExitCode code)
{
    for (const Finding& finding : findings.list()) {
        if (finding.severity != Finding::Error)
            continue;

        const bool isAboutField = code == ExitCode::NotValid;
        return isAboutField ? finding.field + ": " + finding.wholeReason() : finding.wholeReason();
    }
    return QString();
}

/// Lists images, each as soon as it was read. All that is kept of one is its path and its slot.
class ListCommand : public Command {
public:
    explicit ListCommand(CLI::App* parent)
        : Command(parent, "list", "List images and the images in folders, one line each")
    {
        Arguments::addOperands(app, "PATH", &m_paths,
                               "images, and folders, which are searched for .fcf files");
        Arguments::addFlag(app, "--csv", &m_csv,
                           "give the result as comma-separated values, with a heading");
        Arguments::addFlag(
            app, "--digest", &m_digest,
            "compute each SHA-256, and compare it with the one beside the image (default: "
            "only the header page is read)");
    }
    void run(Task* task) override;

private:
    void listArgument(const QString& path, Task* task);
    void list(const QFileInfo& path, Task* task);
    void listImage(const QString& path, Task* task);
    QJsonObject describe(const FcfFile& fcf, const std::optional<InputFile>& digest,
                         SidecarOptions* sidecars, Task* task) const;
    void addSlot(const FcfFile& fcf);
    void checkSlots(Task* task) const;
    QByteArray sha256Of(const FcfFile& fcf, const std::optional<InputFile>& digest,
                        SidecarOptions* sidecars, Task* task) const;
    void printNothing(Task* task);
    void stream(const QByteArray& bytes, Task* task);
    void print(const QJsonObject& row, Task* task);
    QByteArray headings(const Task& task) const;
    QByteArray line(const QJsonObject& row, const Task& task) const;
    QString cell(const Column& column, const QJsonValue& value) const;
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
    /// How many images were named or found in folders, those that were listed already included.
    int m_found = 0;
    /// The absolute paths of the images that were listed.
    QSet<QString> m_listed;
    /// The files that count for their slots.
    std::set<FileSystem::Identity> m_counted;
    /// Whether the result cannot be written.
    bool m_isStopped = false;
    /// The images by their folder, and by module, device and slot number.
    QMap<QPair<QString, QString>, Slot> m_slots;
};

void ListCommand::run(Task* task)
{
    task->report.findingsAreResults = !m_csv;
    if (m_csv && task->report.json) {
        task->refuse("--csv", "cannot be given with --json");
        return;
    }

    for (const std::string& argument : m_paths) {
        const std::optional<QString> path = task->path(argument, "PATH");
        if (path == StandardStream)
            task->refuse("PATH", "standard input cannot be listed; show reads it");
        else if (path)
            listArgument(*path, task);
    }

    if (m_isEmpty && !m_isStopped)
        printNothing(task);
    checkSlots(task);
}

/// Lists what an argument names, and notes a folder in which there is nothing.
void ListCommand::listArgument(const QString& path, Task* task)
{
    const int foundBefore = m_found;
    const int findingsBefore = task->findings.list().size();
    list(QFileInfo(path), task);

    const bool hasFailed = task->findings.list().size() > findingsBefore;
    if (m_found == foundBefore && !hasFailed)
        task->findings.note(path, "PATH", "no .fcf file was found in it");
}

/// Gives the result that there is of no image.
void ListCommand::printNothing(Task* task)
{
    if (task->report.json)
        task->report.result["files"] = QJsonArray();
    else
        stream(headings(*task), task);
}

/// Adds an error for each slot that several images are for.
void ListCommand::checkSlots(Task* task) const
{
    for (auto slot = m_slots.cbegin(); slot != m_slots.cend(); ++slot) {
        if (slot->count > 1)
            task->findings.error(ExitCode::NotValid, slot->first, "configNumber",
                                 QStringLiteral("%1 is that of %2 images, among them %3")
                                     .arg(slot.key().second)
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

    const auto wanted = QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot | QDir::CaseSensitive;
    for (const QFileInfo& entry : folder.entryInfoList({"*.fcf"}, wanted, QDir::Name)) {
        // A link to a folder may lead back here.
        const bool isLinkToFolder = entry.isDir() && entry.isSymLink();
        if (!isLinkToFolder)
            list(entry, task);
    }
}

void ListCommand::listImage(const QString& path, Task* task)
{
    ++m_found;
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (m_isStopped || m_listed.contains(absolute))
        return;
    m_listed << absolute;

    // The findings of one image go into its own line.
    Task own(&task->environment, std::string());
    own.report.quiet = true;
    SidecarOptions sidecars;
    sidecars.skipCompanion();
    auto set = sidecars.open(path, true, &own);
    if (const ProtectedInput* const input = own.inputs.behind(task->environment.out)) {
        stop(ExitCode::Refused, input->refusal(), task);
        return;
    }

    const auto reach = m_digest ? Task::Whole : Task::PageOnly;
    const auto fcf = set ? own.readFcf(std::move(set->file), reach) : std::nullopt;
    QJsonObject row = fcf ? describe(*fcf, set->digest, &sidecars, &own) : QJsonObject();
    row["file"] = path;
    const ExitCode code = own.findings.exitCode();
    if (fcf && code == ExitCode::Done)
        addSlot(*fcf);
    if (code != ExitCode::Done) {
        row["verdict"] = code == ExitCode::NotValid ? "not valid" : "unreadable";
        if (!row.contains("reason"))
            row["reason"] = reasonFor(own.findings, code);
    }

    task->report.verdict = Findings::moreImportant(task->report.verdict, code);
    print(row, task);
}

QJsonObject ListCommand::describe(const FcfFile& fcf, const std::optional<InputFile>& digest,
                                  SidecarOptions* sidecars, Task* task) const
{
    HeaderPage page = fcf.page;
    const FcfHeader& header = page.reading.header;
    // Without --digest nothing behind the page is read.
    if (!m_digest)
        page.payloadBytes = qMin<qint64>(header.binFileSize, fcf.file.size() - page.bytes);
    FcfFileChecker(&fcf.file, FcfFileChecker::Image, task->codec, &task->findings).check(page);

    const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
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
    if (const QByteArray sha256 = sha256Of(fcf, digest, sidecars, task); !sha256.isEmpty())
        row["sha256"] = QString::fromLatin1(sha256.toHex());

    const qint64 following = fcf.file.size() - page.bytes - header.binFileSize;
    if (!m_digest && following > 0) {
        row["verdict"] = "not checked";
        row["reason"] = QStringLiteral("%1 bytes follow the payload").arg(following);
    }
    return row;
}

/// Counts \p fcf, which is valid, among the images of its folder for its slot. Several names of one
/// file count once.
void ListCommand::addSlot(const FcfFile& fcf)
{
    const FcfHeader& header = fcf.page.reading.header;
    const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
    const bool isSlot =
        header.configNumber >= FcfTarget::FirstSlot && header.configNumber <= FcfTarget::LastSlot;
    const auto identity = FileSystem::identityOf(fcf.file.device()->handle());
    if (!target || !isSlot || !identity || !m_counted.insert(*identity).second)
        return;

    const QString name = QStringLiteral("%1 %2 slot %3")
                             .arg(QLatin1String(target->module), QLatin1String(target->device))
                             .arg(header.configNumber);
    const QString folder = QFileInfo(fcf.file.path()).absolutePath();
    Slot& slot = m_slots[{folder, name}];
    slot.last = fcf.file.path();
    if (slot.count == 0)
        slot.first = slot.last;
    ++slot.count;
}

/// The digest in the file beside the image, else with --digest the image's own. Empty if there is
/// none.
QByteArray ListCommand::sha256Of(const FcfFile& fcf, const std::optional<InputFile>& digest,
                                 SidecarOptions* sidecars, Task* task) const
{
    if (digest) {
        if (m_digest)
            sidecars->checkDigest(fcf, digest, task);
        const auto lines = task->findings.valueOf(digest->bytesAt(0, DigestList::MaximumBytes));
        const DigestList list(lines.value_or(QByteArray()), QFileInfo(digest->path()).path());
        return list.entries().value(0).digest;
    }
    if (!m_digest)
        return QByteArray();

    const Region image{&fcf.file, 0, fcf.file.size(), nullptr};
    const auto own = Digest::of(image, [](const char*, qint64) {});
    return task->findings.valueOf(own).value_or(QByteArray());
}

void ListCommand::print(const QJsonObject& row, Task* task)
{
    QByteArray bytes;
    if (task->report.json)
        bytes = asPrintable(QJsonDocument(row).toJson(QJsonDocument::Compact));
    else if (m_isEmpty)
        bytes = headings(*task) + '\n' + line(row, *task);
    else
        bytes = line(row, *task);
    m_isEmpty = false;
    stream(bytes, task);
}

void ListCommand::stream(const QByteArray& bytes, Task* task)
{
    const auto written = task->report.stream(bytes, task->environment);
    if (!written)
        stop(ExitCode::CannotAccess, "cannot be written: " + written.error(), task);
}

QByteArray ListCommand::headings(const Task& task) const
{
    QJsonObject headings;
    for (const Column& column : Columns)
        headings[column.name] = m_csv ? column.name : column.heading;
    return line(headings, task);
}

QByteArray ListCommand::line(const QJsonObject& row, const Task& task) const
{
    QStringList cells;
    for (const Column& column : Columns)
        cells << cell(column, row[column.name]);

    if (m_csv)
        return encoded(cells.join(","), task.codec);
    return encoded(cells.join("  ").trimmed(), task.codec);
}

QString ListCommand::cell(const Column& column, const QJsonValue& value) const
{
    QString text = value.isDouble() ? QString::number(value.toVariant().toLongLong())
                                    : shownText(value.toString(), WholeText);
    if (m_csv) {
        static const QRegularExpression special("[,\"]");
        if (!text.contains(special))
            return text;
        return QLatin1Char('"') + text.replace(QLatin1Char('"'), "\"\"") + QLatin1Char('"');
    }

    if (column.width == 0)
        return text;
    if (text.isEmpty())
        text = "-";
    // The table has the first digits of a digest alone.
    const bool isCut = qstrcmp(column.name, "sha256") == 0;
    return text.leftJustified(column.width, ' ', isCut);
}

void ListCommand::stop(ExitCode code, const QString& reason, Task* task)
{
    task->findings.error(code, StandardOutputLabel, QString(), reason);
    task->report.outIsTaken = true;
    m_isStopped = true;
}

} // namespace

CommandPointer listCommand(CLI::App* app) { return std::make_unique<ListCommand>(app); }
