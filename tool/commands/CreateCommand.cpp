#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/build/Stamp.h"
#include "tool/check/Checker.h"
#include "tool/check/PayloadKind.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/BuildOptions.h"
#include "tool/commands/Command.h"
#include "tool/commands/Outputs.h"
#include "tool/files/Copy.h"
#include "tool/files/Digest.h"
#include "tool/files/OutputFiles.h"

#include <CLI/CLI.hpp>

namespace {

/// Makes an image and its companion of a binary.
class CreateCommand : public Command {
public:
    const char* name() const override { return "create"; }
    const char* summary() const override { return "Make an image and its companion of a binary"; }
    void declare(CLI::App* app) override;
    void run(Task* task) override;

private:
    std::optional<InputFile> openBinary(Task* task) const;
    std::optional<Outputs> plan(const InputFile& binary, Task* task) const;
    void guard(const Outputs& outputs, Task* task) const;
    FcfHeader header(const Build& build, qint64 binaryBytes, const QString& imageName,
                     Task* task) const;
    void stamp(FcfHeader* header, Task* task) const;
    Status write(const QByteArray& page, const InputFile& binary, const Outputs& outputs,
                 Task* task) const;
    void report(const FcfHeader& header, const Outputs& outputs, Task* task) const;

    BuildOptions m_build;
    std::string m_binary;
    std::optional<std::string> m_output;
    std::optional<std::string> m_dateTime;
    std::optional<std::string> m_dateFormat;
    bool m_noCompanion = false;
    bool m_digest = false;
    bool m_force = false;
    bool m_strict = false;
};

void CreateCommand::declare(CLI::App* app)
{
    Arguments::addOperand(app, "BIN", &m_binary, "the binary; - is standard input");
    m_build.declare(app);
    Arguments::addOption(app, "--output", &m_output, "FILE",
                         "the image, its name ending with .fcf; - is standard output");
    Arguments::addOption(
        app, "--date-time", &m_dateTime, "YYYY-MM-DDTHH:MM:SS",
        "the date and time in the header, in place of SOURCE_DATE_EPOCH or the clock");
    Arguments::addOption(app, "--date-format", &m_dateFormat, "locale|iso",
                         "how the date is written");
    app->add_flag("--no-companion", m_noCompanion, "write no companion (.txt)");
    app->add_flag("--digest", m_digest, "write the image's SHA-256 beside it (.fcf.sha256)");
    app->add_flag("--force", m_force, "replace outputs that exist");
    app->add_flag("--strict", m_strict, "take warnings for errors");
}

void CreateCommand::run(Task* task)
{
    task->findings.setSubject(InputFile::labelOf(QFile::decodeName(m_binary.c_str())));
    const Build build = m_build.build(task);
    const std::optional<InputFile> binary = openBinary(task);
    const std::optional<Outputs> outputs = binary ? plan(*binary, task) : std::nullopt;
    Checker(&task->findings, QString(), build.origins).checkBuild(build);
    const FcfHeader composed =
        header(build, binary ? binary->size() : 0, outputs ? outputs->imageName : QString(), task);
    if (m_strict)
        task->findings.promoteWarnings();
    if (task->findings.hasErrors())
        return;
    const FcfWriter writer(task->codec);
    QByteArray page = writer.compose(composed);
    page += writer.fillerFor(page.size());
    if (task->findings.accept(write(page, *binary, *outputs, task)) && !outputs->toStandardOutput())
        report(composed, *outputs, task);
}

std::optional<InputFile> CreateCommand::openBinary(Task* task) const
{
    const std::optional<QString> path = task->path(m_binary, "BIN");
    auto binary = path ? task->open(*path, Checker::LargestBinary, "BIN") : std::nullopt;
    if (!binary)
        return std::nullopt;
    Checker(&task->findings, binary->label()).checkBinarySize(binary->size());
    const auto start = task->findings.valueOf(binary->bytesAt(0, PayloadKind::LookedAtBytes));
    const QString complaint =
        start && !start->isEmpty() ? PayloadKind::complaint(*start) : QString();
    if (!complaint.isEmpty())
        task->findings.warning(binary->label(), QStringLiteral("payload"), complaint);
    return binary;
}

std::optional<Outputs> CreateCommand::plan(const InputFile& binary, Task* task) const
{
    std::optional<QString> output;
    if (m_output) {
        output = task->path(*m_output, "--output");
        if (!output)
            return std::nullopt;
        // As JSON it is refused, and that is what goes there.
        task->report.outIsTaken = output == StandardStream && !task->report.json;
    }
    const auto outputs = task->findings.valueOf(Outputs::of(binary, output));
    if (outputs)
        guard(*outputs, task);
    return outputs;
}

void CreateCommand::guard(const Outputs& outputs, Task* task) const
{
    const OutputGuard guard(&task->inputs, m_force, &task->findings);
    guard.guardStandardOutput(task->environment.out);
    if (outputs.toStandardOutput()) {
        const auto refuse = [task](const QString& reason) {
            task->findings.error(ExitCode::Refused, StandardOutputLabel, QStringLiteral("--output"),
                                 reason);
        };
        if (!m_noCompanion)
            refuse(QStringLiteral("takes the image alone: give --no-companion as well"));
        if (m_digest || task->report.json)
            refuse(QStringLiteral("takes the image alone: --digest and --json need a file"));
        return;
    }
    guard.guard(outputs.image);
    if (m_noCompanion)
        guard.guardUnwritten(outputs.companion, "--no-companion");
    else
        guard.guard(outputs.companion);
    if (m_digest)
        guard.guard(outputs.digest);
    else
        guard.guardUnwritten(outputs.digest, "--digest");
}

FcfHeader CreateCommand::header(const Build& build, qint64 binaryBytes, const QString& imageName,
                                Task* task) const
{
    FcfHeader header;
    PelkFcfGeneratorFileInfo().measure(binaryBytes, &header);
    build.describe(&header);
    header.fileName = imageName;
    stamp(&header, task);
    Checker(&task->findings, QString(), build.origins).checkTexts(header, task->codec);
    return header;
}

/// With --date-time, else with SOURCE_DATE_EPOCH, else with the clock. Whatever is malformed is
/// refused, used or not.
void CreateCommand::stamp(FcfHeader* header, Task* task) const
{
    Findings& findings = task->findings;
    QDateTime moment = task->environment.clock();
    if (const auto& source = task->environment.sourceDateEpoch)
        moment = findings.valueOf(Stamp::sourceDate(*source)).value_or(moment);
    if (const auto text = m_dateTime ? task->text(*m_dateTime, "--date-time") : std::nullopt)
        moment = findings.valueOf(Stamp::given(*text)).value_or(moment);
    header->stamp(moment);
    const auto format = m_dateFormat ? task->text(*m_dateFormat, "--date-format") : std::nullopt;
    if (format && findings.valueOf(Stamp::dateFormat(*format)) == Stamp::DateFormat::Iso)
        header->date = moment.date().toString(Qt::ISODate);
}

Status CreateCommand::write(const QByteArray& page, const InputFile& binary, const Outputs& outputs,
                            Task* task) const
{
    OutputFiles files(m_force ? OutputFiles::Replace : OutputFiles::Keep);
    QIODevice* image = task->environment.out;
    QString label = StandardOutputLabel;
    if (!outputs.toStandardOutput()) {
        const auto added = files.add(outputs.image);
        if (!added)
            return tl::unexpected<Finding>(added.error());
        image = *added;
        label = outputs.image;
    }
    Digest::Hash hash;
    const CopyObserver progress = task->progress(QStringLiteral("create"), binary.size());
    const auto observe = [&](const char* data, qint64 bytes) {
        if (m_digest)
            hash.add(data, bytes);
        progress(data, bytes);
    };
    if (m_digest)
        hash.add(page.constData(), page.size());
    Status status = writeAll(image, page, label);
    if (status)
        status = copyPayload(binary, 0, image, label,
                             m_digest ? PayloadCopy::Seen : PayloadCopy::Unseen, observe);
    if (!status || outputs.toStandardOutput())
        return status;
    if (!m_noCompanion)
        status = files.add(outputs.companion, page);
    if (status && m_digest)
        status = files.add(outputs.digest, Digest::line(hash.result(), outputs.image));
    return status ? files.place() : status;
}

void CreateCommand::report(const FcfHeader& header, const Outputs& outputs, Task* task) const
{
    const struct {
        bool isWritten;
        const char* name;
        QString path;
    } files[] = {{true, "image", outputs.image},
                 {!m_noCompanion, "companion", outputs.companion},
                 {m_digest, "digest", outputs.digest}};
    for (const auto& file : files) {
        if (!file.isWritten)
            continue;
        task->report.print(file.path);
        task->report.result[QLatin1String(file.name)] = file.path;
    }
    task->report.result["header"] = BuildJson::header(header);
}

} // namespace

std::unique_ptr<Command> createCommand() { return std::make_unique<CreateCommand>(); }
