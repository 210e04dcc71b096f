#include "tool/base/Text.h"
#include "tool/check/Validator.h"
#include "tool/commands/BesideFiles.h"
#include "tool/commands/BinaryInput.h"
#include "tool/commands/Command.h"

namespace {

/// Says whether files are valid images or companions.
class VerifyCommand : public Command {
public:
    explicit VerifyCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    std::optional<Validator::Kind> kindOf(const QString& path, Task* task) const;
    void verify(const std::string& argument, const QString& path, Task* task, QJsonObject* result);

    std::vector<std::string> m_files;
    BinaryInput m_binary;
    BesideFiles m_beside;
    std::optional<std::string> m_type;
};

VerifyCommand::VerifyCommand(CLI::App* parent)
    : Command(parent, "verify", "Say whether images and companions are valid")
{
    Argument::addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
    m_binary.declareOption(app);
    m_beside.declareNaming(app);
    Argument::addOption(app, "--type", &m_type, "image|companion",
                        "what FILE is (default: by its name, .fcf or .txt)");
}

void VerifyCommand::run(Task* task)
{
    task->report.findingsAreResults = true;
    if (m_files.size() > 1 && (m_binary.isGiven() || m_beside.areNamed())) {
        task->refuse("FILE", "--bin, --companion and --digest are about one file");
        return;
    }
    QJsonArray results;
    for (const std::string& argument : m_files) {
        const std::optional<QString> path = task->path(argument, "FILE");
        if (!path)
            continue;
        const QString label = InputFile::labelOf(*path);
        QJsonObject result{{"file", label}};
        const int findingsBefore = task->findings.list().size();
        verify(argument, *path, task, &result);
        const ExitCode verdict = task->findings.exitCode(findingsBefore);
        const bool isKnown = verdict == ExitCode::Done || verdict == ExitCode::NotValid;
        result["valid"] = isKnown ? QJsonValue(verdict == ExitCode::Done) : QJsonValue();
        results.append(result);
        if (isKnown)
            task->report.print(QStringLiteral("%1: %2").arg(
                shownText(label), verdict == ExitCode::Done ? "valid" : "not valid"));
    }
    task->report.result["files"] = results;
}

/// What --type says, else the ending of the name, and never what is in the file: an image that was
/// cut off behind its header looks just like a companion.
std::optional<Validator::Kind> VerifyCommand::kindOf(const QString& path, Task* task) const
{
    if (m_type == "image" || (!m_type && path.endsWith(".fcf")))
        return Validator::Image;
    if (m_type == "companion" || (!m_type && path.endsWith(".txt")))
        return Validator::Companion;
    task->findings.error(ExitCode::Refused, path, "--type",
                         m_type ? "is neither \"image\" nor \"companion\""
                                : "is missing: the name ends with neither .fcf nor .txt");
    return std::nullopt;
}

void VerifyCommand::verify(const std::string& argument, const QString& path, Task* task,
                           QJsonObject* result)
{
    const std::optional<Validator::Kind> kind = kindOf(path, task);
    if (kind == Validator::Companion && m_beside.hasNamedDigest()) {
        task->findings.error(ExitCode::Refused, path, "--digest",
                             "is of an image; this is a companion");
        return;
    }
    const auto fcf = kind ? task->openFcf(argument, Task::Whole) : std::nullopt;
    if (!fcf)
        return;
    const auto& [file, page] = *fcf;
    const Validator validator(&file, *kind, task->codec, &task->findings);
    validator.validate(page);
    m_beside.checkCompanion(validator, file, page, task);
    const auto binary = m_binary.isGiven() ? m_binary.open(task) : std::nullopt;
    if (binary)
        validator.compareBinary(page, m_binary.payload(*binary),
                                task->progress("verify", binary->size()));
    if (*kind == Validator::Companion)
        return;
    const bool payloadIsKnown = m_beside.checkDigest(file, page, task) || binary;
    (*result)["payloadCompared"] = payloadIsKnown;
    (*result)["imageBytes"] = page.imageBytes();
    (*result)["fillerBytes"] = page.fillerBytes;
    if (!payloadIsKnown)
        task->findings.note(file.label(), "payload",
                            "the header holds no checksum of the payload, so only its "
                            "length was checked; --bin or a digest checks more");
}

} // namespace

CommandPointer verifyCommand(CLI::App* app) { return std::make_unique<VerifyCommand>(app); }
