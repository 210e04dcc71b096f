#include "tool/commands/Outputs.h"

#include "tool/base/Text.h"
#include "tool/commands/Command.h"
#include "tool/files/Digest.h"

#include <QFileInfo>

namespace {

const QString BinaryEnding = ".bin";
const QString ContainerEnding = ".bit";
const QString ImageEnding = ".fcf";
const QString CompanionEnding = ".txt";
const QString OutputOption = "--output";

QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }

/// \p path with every ".bin" of its last name replaced; those of folders stay.
QString renamed(const QString& path, const QString& ending)
{
    const QString name = nameOf(path);
    return path.left(path.size() - name.size()) + QString(name).replace(BinaryEnding, ending);
}

void refuse(const QString& path, const QString& reason, Task* task)
{
    task->findings.error(ExitCode::Refused, path, OutputOption, reason);
}

} // namespace

void OutputGuard::guard(const QString& path, bool isReplaced, Task* task)
{
    if (const ReadFile* const input = task->inputs.find(FileSystem::identityOf(path))) {
        refuse(path, isInput(*input), task);
        return;
    }
    // Of a link its target counts: /dev/stdout is not replaced by a file.
    const QFileInfo info(path);
    if (!FileSystem::exists(path))
        task->findings.accept(FileSystem::checkPlaceOf(path));
    else if (info.isDir() && !info.isSymLink())
        refuse(path, "is a folder", task);
    else if (info.exists() && !info.isDir() && !info.isFile())
        refuse(path, "is not a file", task);
    else if (!isReplaced)
        task->findings.add(FileSystem::alreadyExists(path).value());
}

void OutputGuard::guardStandardOutput(bool getsBinary, Task* task)
{
    if (const ReadFile* const input = task->inputs.behind(task->environment.out))
        refuse(StandardOutputLabel, isInput(*input), task);
    if (getsBinary && task->environment.outIsTerminal)
        refuse(StandardOutputLabel,
               "is a terminal, and gets no binary data: redirect it or name a file", task);
}

void OutputGuard::guardUnwritten(const QString& path, const char* option, Task* task)
{
    if (const ReadFile* const input = task->inputs.find(FileSystem::identityOf(path)))
        refuse(path, isInput(*input), task);
    else if (FileSystem::exists(path))
        task->findings.warning(path, QLatin1String(option),
                               "exists, is not written, and so will not belong to the "
                               "new image");
}

Result<Outputs> Outputs::of(const InputFile& binary, const std::optional<QString>& output)
{
    const bool isContainer = binary.path().endsWith(ContainerEnding);
    const bool named =
        !binary.isStandardInput() && (binary.path().endsWith(BinaryEnding) || isContainer);
    const QString path =
        isContainer ? binary.path().chopped(ContainerEnding.size()) + BinaryEnding : binary.path();
    const bool toStandardOutput = output == StandardStream;
    Outputs outputs;
    if (output && !toStandardOutput) {
        if (!output->endsWith(ImageEnding))
            return failure(ExitCode::Refused, *output, OutputOption,
                           "the name of an image ends with .fcf");
        outputs.image = *output;
        outputs.companion = output->chopped(ImageEnding.size()) + CompanionEnding;
    } else if (named) {
        outputs.image = renamed(path, ImageEnding);
        outputs.companion = renamed(path, CompanionEnding);
    } else {
        return failure(ExitCode::Refused, binary.label(), OutputOption,
                       output ? "gives no name for the header: only a BIN whose "
                                "name ends with .bin does"
                              : "is missing: only a name that ends with .bin gives "
                                "the image's name");
    }
    outputs.digest = Digest::pathFor(outputs.image);
    outputs.imageName = nameOf(outputs.image);
    if (toStandardOutput)
        outputs.image = StandardStream;
    return outputs;
}

bool Outputs::toStandardOutput() const { return image == StandardStream; }
