#include "tool/commands/OutputChecks.h"

#include "tool/base/Text.h"
#include "tool/commands/Task.h"

#include <QFileInfo>

namespace {

void refuse(const QString& path, const QString& reason, Task* task)
{
    task->findings.refuse(path, "--output", reason);
}

/// Refuses \p path if it is an input. Returns whether it is.
bool refuseInput(const QString& path, Task* task)
{
    const ProtectedInput* const input = task->inputs.find(FileSystem::identityOf(path));
    if (input)
        refuse(path, input->refusal(), task);

    return input != nullptr;
}

/// Whether the file or link \p path may be replaced, as far as that depends on what it is.
Result<bool> isReplaceable(const QString& path, const OutputChecks::Existing& existing)
{
    // There is nothing to recognise behind a link to a folder, or to nothing.
    const QFileInfo info(path);
    if (!existing.kind || !info.isFile())
        return true;

    // Nothing is lost with an empty file, which an image that was never completed leaves behind.
    if (info.size() == 0)
        return true;

    return FileKind::isOfKind(path, *existing.kind);
}

/// Checks whether the file or link \p path may be replaced.
void checkExisting(const QString& path, const OutputChecks::Existing& existing, Task* task)
{
    const auto replaceable = task->findings.valueOf(isReplaceable(path, existing));
    if (!replaceable)
        return;

    if (*replaceable) {
        if (!existing.isReplaced)
            task->findings.add(FileSystem::alreadyExists(path).value());
        return;
    }

    // That the file exists comes first, so that scripts find the exit code for it.
    const ExitCode code = existing.isReplaced ? ExitCode::Refused : ExitCode::OutputExists;
    task->findings.error(code, path, "--output",
                         QStringLiteral("exists already, and is not replaced, as it is no %1: move "
                                        "it away or choose another name")
                             .arg(FileKind::nameOf(*existing.kind)));
}

} // namespace

void OutputChecks::checkFile(const QString& path, const Existing& existing, Task* task)
{
    if (refuseInput(path, task))
        return;

    if (!FileSystem::exists(path)) {
        task->findings.accept(FileSystem::checkPlaceOf(path));
        return;
    }

    // A link to a folder is replaced, but of any other link the target counts: /dev/stdout is not
    // replaced by a file.
    const QFileInfo info(path);
    const bool isFolder = info.isDir();
    const bool isOther = info.exists() && !isFolder && !info.isFile();
    if (isFolder && !info.isSymLink())
        refuse(path, "is a folder", task);
    else if (isOther)
        refuse(path, "is not a file", task);
    else
        checkExisting(path, existing, task);
}

void OutputChecks::checkStandardOutput(bool getsBinary, Task* task)
{
    if (const ProtectedInput* const input = task->inputs.behind(task->environment.out))
        refuse(StandardOutputLabel, input->refusal(), task);

    if (getsBinary && task->environment.outIsTerminal)
        refuse(StandardOutputLabel,
               "is a terminal, and gets no binary data: redirect it or name a file", task);
}

void OutputChecks::checkUnwritten(const QString& path, const char* option, Task* task)
{
    if (refuseInput(path, task))
        return;

    if (FileSystem::exists(path))
        task->findings.warning(path, QLatin1String(option),
                               "exists, is not written, and so will not belong to the "
                               "new image");
}
