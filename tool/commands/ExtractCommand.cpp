#include "tool/base/Text.h"
#include "tool/check/Validator.h"
#include "tool/commands/BesideFiles.h"
#include "tool/commands/Command.h"
#include "tool/commands/Outputs.h"
#include "tool/files/Copy.h"
#include "tool/files/OutputFiles.h"

namespace {

/// Takes the payload out of a valid image.
class ExtractCommand : public Command {
public:
    explicit ExtractCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    Status write(const Region& payload, const QString& output, Task* task) const;

    std::optional<std::string> m_file;
    std::optional<std::string> m_output;
    BesideFiles m_beside;
    bool m_force = false;
};

ExtractCommand::ExtractCommand(CLI::App* parent)
    : Command(parent, "extract", "Take the payload out of an image")
{
    Argument::addRequired(app, "FILE", &m_file, "", "an image; - is standard input");
    Argument::addRequired(app, "-o,--output", &m_output, "FILE",
                          "where the payload goes; - is standard output");
    m_beside.declareSkipping(app);
    Argument::addFlag(app, "-f,--force", &m_force, "replace an output that exists");
}

void ExtractCommand::run(Task* task)
{
    const std::optional<QString> output = task->path(*m_output, "--output");
    // As JSON it is refused, and that is what goes there.
    task->report.outIsTaken = output == StandardStream && !task->report.json;
    const auto fcf = output ? task->openFcf(*m_file, Task::Whole) : std::nullopt;
    OutputGuard::guardStandardOutput(output == StandardStream, task);
    if (output && output != StandardStream)
        OutputGuard::guard(*output, m_force, task);
    else if (output && task->report.json)
        task->findings.error(ExitCode::Refused, StandardOutputLabel, "--output",
                             "takes the payload alone: --json needs a file");
    if (!fcf || task->findings.hasErrors())
        return;
    const auto& [file, page] = *fcf;
    const Validator validator(&file, Validator::Image, task->codec, &task->findings);
    validator.validate(page);
    m_beside.checkCompanion(validator, file, page, task);
    m_beside.checkDigest(file, page, task);
    task->findings.dropNotes();
    if (task->findings.hasErrors() ||
        !task->findings.accept(
            write({&file, page.bytes, page.payloadBytes, nullptr}, *output, task)))
        return;
    task->report.isInPlace = true;
    task->report.print(*output);
    task->report.result["payload"] = *output;
    task->report.result["payloadBytes"] = page.payloadBytes;
}

Status ExtractCommand::write(const Region& payload, const QString& output, Task* task) const
{
    const CopyObserver progress = task->progress("extract", payload.bytes);
    if (output == StandardStream)
        return copyPayload(payload, task->environment.out, StandardOutputLabel, PayloadCopy::Unseen,
                           progress);
    OutputFiles files(m_force ? OutputFiles::Replace : OutputFiles::Keep);
    return files.add(output)
        .and_then([&](QFile* file) {
            return copyPayload(payload, file, output, PayloadCopy::Unseen, progress);
        })
        .and_then([&files] { return files.place(); });
}

} // namespace

CommandPointer extractCommand(CLI::App* app) { return std::make_unique<ExtractCommand>(app); }
