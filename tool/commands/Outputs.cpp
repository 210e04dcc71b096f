#include "tool/commands/Outputs.h"

#include "tool/base/Text.h"
#include "tool/check/Validator.h"
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

Status ImageFiles::write(OutputFiles::Existing existing, QIODevice* out,
                         const CopyObserver& progress, QByteArray* digest) const
{
    OutputFiles files(existing);
    QString label = StandardOutputLabel;
    if (!outputs.toStandardOutput()) {
        const auto added = files.add(outputs.image);
        if (!added)
            return tl::unexpected<Finding>(added.error());
        out = *added;
        label = outputs.image;
    }
    Digest::Hash hash;
    const bool isDigested = hasDigest || digest;
    const auto observe = [&](const char* data, qint64 bytes) {
        if (isDigested)
            hash.add(data, bytes);
        progress(data, bytes);
    };
    Status status = writeAll(out, page, label);
    observe(page.constData(), page.size());
    if (status)
        status = copyPayload(payload, out, label,
                             isDigested ? PayloadCopy::Seen : PayloadCopy::Unseen, observe);
    if (status)
        status = Filler::write(out, fillerBytes, label, observe);
    const QByteArray taken = hash.result();
    if (digest)
        *digest = taken;
    if (status && !outputs.toStandardOutput() && hasCompanion)
        status = files.add(outputs.companion, page);
    if (status && !outputs.toStandardOutput() && hasDigest)
        status = files.add(outputs.digest, Digest::line(taken, outputs.image));
    return status && !outputs.toStandardOutput() ? files.place() : status;
}

std::optional<QByteArray> ImageFiles::digestIfThere() const
{
    Inputs inputs(nullptr, nullptr);
    const auto open = [&inputs](const QString& path) {
        return inputs.open(path, Validator::LargestFile, QString());
    };
    const auto has = [&open](const QString& path, const QByteArray& expected) {
        const auto file = open(path);
        return file && file->size() == expected.size() &&
               file->bytesAt(0, expected.size()) == expected;
    };
    const auto ignore = [](const char*, qint64) {};
    const auto image = open(outputs.image);
    const qint64 bytes = page.size() + payload.bytes;
    if (!image || image->size() != bytes + fillerBytes || image->bytesAt(0, page.size()) != page ||
        (hasCompanion && !has(outputs.companion, page)))
        return std::nullopt;
    const auto filler = Filler::isIn({&*image, bytes, fillerBytes, nullptr});
    const auto difference =
        FileCompare::compare(payload, {&*image, page.size(), payload.bytes, nullptr}, ignore);
    const auto digest = Digest::of({&*image, 0, image->size(), nullptr}, ignore);
    if (!filler || !*filler || !difference || difference->count > 0 || !digest ||
        (hasDigest && !has(outputs.digest, Digest::line(*digest, outputs.image))))
        return std::nullopt;
    return *digest;
}
