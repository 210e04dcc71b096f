#include "tool/base/Text.h"
#include "tool/commands/Command.h"
#include "tool/commands/DumpOptions.h"
#include "tool/commands/OutputChecks.h"
#include "tool/commands/SidecarOptions.h"
#include "tool/files/Copy.h"
#include "tool/files/OutputTransaction.h"

namespace {

/// Takes the payload out of a valid image.
class ExtractCommand : public Command {
public:
    explicit ExtractCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    void checkOutput(const QString& output, Task* task) const;
    Status write(const Region& payload, const QString& output, Task* task) const;

    std::optional<std::string> m_file;
    std::optional<std::string> m_output;
    DumpOptions m_dump;
    SidecarOptions m_sidecars;
    bool m_force = false;
};

ExtractCommand::ExtractCommand(CLI::App* parent)
    : Command(parent, "extract", "Take the payload out of an image")
{
    Arguments::addRequired(app, "FILE", &m_file, "", "an image; - is standard input");
    Arguments::addRequired(app, "-o,--output", &m_output, "FILE",
                           "where the payload goes; - is standard output");
    m_dump.declare(app);
    m_sidecars.declareSkipping(app);
    Arguments::addFlag(app, "-f,--force", &m_force, "replace an output that exists");
}

void ExtractCommand::run(Task* task)
{
    const std::optional<QString> output = task->path(*m_output, "--output");
    if (!output)
        return;

    // With --json it is refused, and the refusal goes to standard output.
    task->report.outIsTaken = output == StandardStream && !task->report.json;
    // What is beside a dump is of all of it.
    if (m_dump.isGiven())
        m_sidecars.skipUnnamed();
    const std::optional<QString> path = task->path(*m_file, "FILE");
    auto set = path ? m_sidecars.open(*path, true, task) : std::nullopt;
    const auto image = set ? m_dump.read(std::move(set->file), task) : std::nullopt;
    checkOutput(*output, task);
    if (!image || task->findings.hasErrors())
        return;

    if (!m_sidecars.checkImage(*image, *set, task))
        return;

    const Status written = write(image->payload(), *output, task);
    if (!task->findings.accept(written))
        return;

    task->report.isInPlace = true;
    task->report.print(shownText(*output, WholeText));
    task->report.result["payload"] = *output;
    task->report.result["payloadBytes"] = image->page.payloadBytes;
}

void ExtractCommand::checkOutput(const QString& output, Task* task) const
{
    const bool toStandardOutput = output == StandardStream;
    OutputChecks::checkStandardOutput(toStandardOutput, task);
    if (!toStandardOutput)
        OutputChecks::checkFile(output, {m_force, std::nullopt}, task);
    else if (task->report.json)
        task->findings.refuse(StandardOutputLabel, "--output",
                              "takes the payload alone: --json needs a file");
}

Status ExtractCommand::write(const Region& payload, const QString& output, Task* task) const
{
    const CopyObserver progress = task->progress("extract", payload.bytes);
    if (output == StandardStream)
        return copyPayload(payload, task->environment.out, StandardOutputLabel, PayloadCopy::Unseen,
                           progress);

    OutputTransaction files(m_force ? OutputTransaction::Replace : OutputTransaction::Keep);
    const auto file = files.add(output);
    if (!file)
        return tl::unexpected<Finding>(file.error());

    if (Status status = copyPayload(payload, *file, output, PayloadCopy::Unseen, progress); !status)
        return status;

    return files.commit();
}

} // namespace

CommandPointer extractCommand(CLI::App* app) { return std::make_unique<ExtractCommand>(app); }
