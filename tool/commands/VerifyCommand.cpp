#include "tool/base/Text.h"
#include "tool/check/Validator.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"
#include "tool/files/Copy.h"
#include "tool/files/Digest.h"

namespace {

/// Says whether files are valid images or companions.
class VerifyCommand : public Command {
public:
    const char* name() const override { return "verify"; }
    const char* summary() const override { return "Say whether images and companions are valid"; }
    void declare(CLI::App* app) override;
    void run(Task* task) override;

private:
    bool usageIsRight(Task* task) const;
    std::optional<Validator::Kind> kindOf(const QString& path, Task* task) const;
    void verify(const QString& path, Task* task, QJsonObject* result) const;
    void compareCompanion(const Validator& validator, const HeaderPage& page, Task* task) const;
    bool compareBinary(const Validator& validator, const HeaderPage& page, Task* task) const;
    bool checkDigest(const InputFile& file, Task* task) const;

    std::vector<std::string> m_files;
    std::optional<std::string> m_binary;
    std::optional<std::string> m_companion;
    std::optional<std::string> m_digest;
    std::optional<std::string> m_type;
};

void VerifyCommand::declare(CLI::App* app)
{
    Arguments::addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
    Arguments::addOption(app, "--bin", &m_binary, "BIN", "the binary that the payload must be");
    Arguments::addOption(app, "--companion", &m_companion, "TXT",
                         "the companion that the header must be");
    Arguments::addOption(app, "--digest", &m_digest, "FILE",
                         "the image's SHA-256; without it, FILE.sha256 is taken if there is one");
    Arguments::addOption(app, "--type", &m_type, "image|companion",
                         "what FILE is, when its name does not end with .fcf or .txt");
}

void VerifyCommand::run(Task* task)
{
    task->report.findingsAreResults = true;
    if (!usageIsRight(task))
        return;
    QJsonArray results;
    for (const std::string& argument : m_files) {
        const std::optional<QString> path = task->path(argument, "FILE");
        if (!path)
            continue;
        const QString label = InputFile::labelOf(*path);
        QJsonObject result{{"file", label}};
        const int findingsBefore = task->findings.list().size();
        verify(*path, task, &result);
        const ExitCode verdict = task->findings.exitCode(findingsBefore);
        const bool isKnown = verdict == ExitCode::Done || verdict == ExitCode::NotValid;
        result["valid"] = isKnown ? QJsonValue(verdict == ExitCode::Done) : QJsonValue();
        results.append(result);
        if (isKnown)
            task->report.print(QStringLiteral("%1: %2").arg(
                shownText(label),
                verdict == ExitCode::Done ? QStringLiteral("valid") : QStringLiteral("not valid")));
    }
    task->report.result["files"] = results;
}

bool VerifyCommand::usageIsRight(Task* task) const
{
    if (m_files.size() == 1 || (!m_binary && !m_companion && !m_digest))
        return true;
    task->findings.error(ExitCode::Refused, QString(), QStringLiteral("FILE"),
                         QStringLiteral("--bin, --companion and --digest are about one file"));
    return false;
}

/// What --type says, else the ending of the name, and never what is in the file: an image that was
/// cut off behind its header looks just like a companion.
std::optional<Validator::Kind> VerifyCommand::kindOf(const QString& path, Task* task) const
{
    if (m_type == "image" || (!m_type && path.endsWith(QStringLiteral(".fcf"))))
        return Validator::Image;
    if (m_type == "companion" || (!m_type && path.endsWith(QStringLiteral(".txt"))))
        return Validator::Companion;
    task->findings.error(
        ExitCode::Refused, path, QStringLiteral("--type"),
        m_type ? QStringLiteral("is neither \"image\" nor \"companion\"")
               : QStringLiteral("is missing: the name ends with neither .fcf nor .txt"));
    return std::nullopt;
}

void VerifyCommand::verify(const QString& path, Task* task, QJsonObject* result) const
{
    const std::optional<Validator::Kind> kind = kindOf(path, task);
    if (kind == Validator::Companion && m_digest) {
        task->findings.error(ExitCode::Refused, path, QStringLiteral("--digest"),
                             QStringLiteral("is of an image; this is a companion"));
        return;
    }
    const auto fcf = kind ? task->openFcf(path, Validator::LargestFile, "FILE") : std::nullopt;
    if (!fcf)
        return;
    const InputFile& file = fcf->file;
    const HeaderPage& page = fcf->page;
    const Validator validator(&file, *kind, task->codec, &task->findings);
    validator.validate(page);
    compareCompanion(validator, page, task);
    bool payloadIsKnown = compareBinary(validator, page, task);
    if (*kind == Validator::Companion)
        return;
    payloadIsKnown = checkDigest(file, task) || payloadIsKnown;
    (*result)["payloadCompared"] = payloadIsKnown;
    if (!payloadIsKnown)
        task->findings.note(file.label(), QStringLiteral("payload"),
                            QStringLiteral("the header holds no checksum of the payload, so only "
                                           "its length was checked; --bin or a digest tells more"));
}

void VerifyCommand::compareCompanion(const Validator& validator, const HeaderPage& page,
                                     Task* task) const
{
    constexpr char option[] = "--companion";
    const auto path = m_companion ? task->path(*m_companion, option) : std::nullopt;
    const auto companion = path ? task->open(*path, Validator::LargestFile, option) : std::nullopt;
    if (companion)
        validator.compareCompanion(page, *companion);
}

/// Returns whether the payload is known to be right or wrong.
bool VerifyCommand::compareBinary(const Validator& validator, const HeaderPage& page,
                                  Task* task) const
{
    const auto path = m_binary ? task->path(*m_binary, "--bin") : std::nullopt;
    const auto binary = path ? task->open(*path, Validator::LargestFile, "--bin") : std::nullopt;
    if (binary)
        validator.compareBinary(page, *binary,
                                task->progress(QStringLiteral("verify"), binary->size()));
    return binary.has_value();
}

/// Returns whether the payload is known to be right or wrong.
bool VerifyCommand::checkDigest(const InputFile& file, Task* task) const
{
    const QString field = QStringLiteral("digest");
    std::optional<QString> path;
    if (m_digest)
        path = task->path(*m_digest, "--digest");
    else if (!file.isStandardInput() &&
             FileSystem::targetKindOf(Digest::pathFor(file.path())) == FileSystem::Kind::File)
        path = Digest::pathFor(file.path());
    const auto digestFile = path ? task->open(*path, Digest::MaximumBytes, "digest") : std::nullopt;
    const auto lines = digestFile
                           ? task->findings.valueOf(digestFile->bytesAt(0, Digest::MaximumBytes))
                           : std::nullopt;
    if (!lines)
        return false;

    const bool hasName = !file.isStandardInput();
    const QList<QByteArray> expected =
        Digest::find(*lines, hasName ? std::optional<QString>(file.path()) : std::nullopt);
    // Without a name to look for, only a lone one can be meant.
    if (expected.isEmpty() || (!hasName && expected.size() > 1)) {
        task->findings
            .error(ExitCode::NotValid, *path, field,
                   QStringLiteral("holds no SHA-256 of \"%1\"").arg(shownText(file.label())))
            .at(0)
            .comparing(QStringLiteral("a line of sha256sum for that name"),
                       QStringLiteral("none in %1 bytes").arg(lines->size()));
        return false;
    }
    Digest::Hash hash;
    const CopyObserver progress = task->progress(QStringLiteral("verify"), file.size());
    const auto observe = [&](const char* data, qint64 bytes) {
        hash.add(data, bytes);
        progress(data, bytes);
    };
    if (!task->findings.accept(readAll(file, 0, file.size(), observe)))
        return false;
    const QByteArray found = hash.result();
    for (const QByteArray& digest : expected) {
        if (found != digest)
            task->findings
                .error(ExitCode::NotValid, file.label(), field,
                       QStringLiteral("is not that of %1").arg(shownText(*path)))
                .at(0)
                .comparing(QString::fromLatin1(digest.toHex()), QString::fromLatin1(found.toHex()));
    }
    return true;
}

} // namespace

std::unique_ptr<Command> verifyCommand() { return std::make_unique<VerifyCommand>(); }
