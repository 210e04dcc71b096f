#include "tool/base/Text.h"
#include "tool/check/HeaderPage.h"
#include "tool/check/Validator.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/BesideFiles.h"
#include "tool/commands/Command.h"
#include "tool/commands/Outputs.h"
#include "tool/files/Copy.h"
#include "tool/files/OutputFiles.h"

#include <CLI/CLI.hpp>

namespace {

/// Takes the payload out of a valid image.
class ExtractCommand : public Command {
public:
    const char* name() const override { return "extract"; }
    const char* summary() const override { return "Take the payload out of an image"; }
    void declare(CLI::App* app) override;
    void run(Task* task) override;

private:
    void guard(const QString& output, Task* task) const;
    Status write(const Region& payload, const QString& output, Task* task) const;

    std::string m_file;
    std::string m_output;
    BesideFiles m_beside;
    bool m_force = false;
};

void ExtractCommand::declare(CLI::App* app)
{
    Arguments::addOperand(app, "FCF", &m_file, "an image; - is standard input");
    Arguments::addOperand(app, "-o,--output", &m_output,
                          "where the payload goes; - is standard output")
        ->type_name("FILE");
    m_beside.declareSkipping(app);
    app->add_flag("-f,--force", m_force, "replace an output that exists");
}

void ExtractCommand::run(Task* task)
{
    const std::optional<QString> path = task->path(m_file, "FCF");
    const std::optional<QString> output = task->path(m_output, "--output");
    // As JSON it is refused, and that is what goes there.
    task->report.outIsTaken = output == StandardStream && !task->report.json;
    const auto file =
        path && output ? task->open(*path, Validator::LargestFile, "FCF") : std::nullopt;
    if (!file)
        return;
    guard(*output, task);
    auto page =
        task->findings.hasErrors()
            ? std::nullopt
            : task->findings.valueOf(HeaderPage::read(*file, task->codec, ExitCode::NotValid));
    if (!page || !task->findings.accept(page->measure(*file)))
        return;
    const Validator validator(&*file, Validator::Image, task->codec, &task->findings);
    validator.validate(*page);
    m_beside.checkCompanion(validator, *file, *page, task);
    m_beside.checkDigest(*file, *page, task);
    task->findings.dropNotes();
    if (task->findings.hasErrors() ||
        !task->findings.accept(
            write({&*file, page->bytes, page->payloadBytes, nullptr}, *output, task)))
        return;
    task->report.isInPlace = true;
    task->report.print(*output);
    task->report.result["payload"] = *output;
    task->report.result["payloadBytes"] = page->payloadBytes;
}

void ExtractCommand::guard(const QString& output, Task* task) const
{
    const OutputGuard guard(&task->inputs, m_force, &task->findings);
    guard.guardStandardOutput(task->environment, output == StandardStream);
    if (output != StandardStream)
        guard.guard(output);
    else if (task->report.json)
        task->findings.error(ExitCode::Refused, StandardOutputLabel, QStringLiteral("--output"),
                             QStringLiteral("takes the payload alone: --json needs a file"));
}

Status ExtractCommand::write(const Region& payload, const QString& output, Task* task) const
{
    const CopyObserver progress = task->progress(QStringLiteral("extract"), payload.bytes);
    if (output == StandardStream)
        return copyPayload(payload, task->environment.out, StandardOutputLabel, PayloadCopy::Unseen,
                           progress);
    OutputFiles files(m_force ? OutputFiles::Replace : OutputFiles::Keep);
    const auto file = files.add(output);
    if (!file)
        return tl::unexpected<Finding>(file.error());
    Status status = copyPayload(payload, *file, output, PayloadCopy::Unseen, progress);
    return status ? files.place() : status;
}

} // namespace

std::unique_ptr<Command> extractCommand() { return std::make_unique<ExtractCommand>(); }
