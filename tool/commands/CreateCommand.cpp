#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/check/Checker.h"
#include "tool/check/Validator.h"
#include "tool/commands/BinaryInput.h"
#include "tool/commands/BuildOptions.h"
#include "tool/commands/Command.h"
#include "tool/commands/Outputs.h"

namespace {

/// The whole header page of \p header.
QByteArray pageOf(const FcfHeader& header, QTextCodec* codec)
{
    const FcfWriter writer(codec);
    const QByteArray page = writer.compose(header);
    return page + writer.fillerFor(page.size());
}

qint64 upToMultiple(qint64 bytes, qint64 unit) { return (unit - bytes % unit) % unit; }

/// How many bytes of 0xFF go behind an image of \p imageBytes bytes for the argument \p padTo.
Result<qint64> fillerBytes(const std::optional<std::string>& padTo, qint64 imageBytes)
{
    if (!padTo)
        return 0;
    if (*padTo == "page")
        return upToMultiple(imageBytes, FcfLayout::PageBytes);
    if (*padTo == "block")
        return upToMultiple(imageBytes, qint64(FcfLayout::PageBytes) * FcfLayout::BlockPages);
    const QString text = QString::fromLocal8Bit(padTo->c_str());
    const qint32 bytes = wholeNumber(text).value_or(0);
    if (bytes > 0 && bytes >= imageBytes)
        return bytes - imageBytes;
    return failure(ExitCode::Refused, QString(), "--pad-to",
                   bytes > 0 ? QStringLiteral("the image has %1 bytes already").arg(imageBytes)
                             : QStringLiteral("\"%1\" is neither page, block nor a number of bytes")
                                   .arg(shownText(text)));
}

/// Makes an image and its companion of a binary.
class CreateCommand : public Command {
public:
    explicit CreateCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    std::optional<Outputs> plan(const InputFile& binary, Task* task) const;
    void guard(const Outputs& outputs, Task* task) const;
    FcfHeader header(const Build& build, qint64 binaryBytes, const QString& imageName,
                     Task* task) const;
    std::optional<QByteArray> digestIfUnchanged(FcfHeader* header, ImageFiles image,
                                                QTextCodec* codec) const;
    static void report(const FcfHeader& header, const ImageFiles& image, const QByteArray& digest,
                       bool isWritten, Task* task);

    BuildOptions m_build;
    BinaryInput m_binary;
    std::optional<std::string> m_output;
    std::optional<std::string> m_padTo;
    bool m_noCompanion = false;
    bool m_digest = false;
    bool m_force = false;
    bool m_strict = false;
    bool m_ifChanged = false;
};

CreateCommand::CreateCommand(CLI::App* parent)
    : Command(parent, "create", "Make an image and its companion of a binary")
{
    m_binary.declareOperand(app);
    m_build.declare(app);
    Argument::addOption(app, "-o,--output", &m_output, "FILE",
                        "the image, its name ending with .fcf; - is standard output (default: "
                        "BIN with .fcf in place of .bin)");
    Argument::addFlag(app, "--no-companion", &m_noCompanion, "write no companion (.txt)");
    Argument::addFlag(app, "--digest", &m_digest,
                      "write the image's SHA-256 beside it (.fcf.sha256)");
    Argument::addOption(app, "--pad-to", &m_padTo, "page|block|BYTES",
                        "fill the image with 0xFF to the end of a page or block, or to a size "
                        "(default: no filling)");
    Argument::addFlag(
        app, "--if-changed", &m_ifChanged,
        "replace outputs that exist, but leave them untouched where nothing but date and "
        "time would change");
    Argument::addFlag(app, "-f,--force", &m_force, "replace outputs that exist");
    Argument::addFlag(app, "--strict", &m_strict, "take warnings for errors");
}

void CreateCommand::run(Task* task)
{
    task->findings.setSubject(m_binary.label());
    const Build build = m_build.build(task);
    const std::optional<InputFile> binary = m_binary.open(task);
    if (binary)
        m_binary.check(*binary, task);
    const std::optional<Outputs> outputs = binary ? plan(*binary, task) : std::nullopt;
    const Region payload = binary ? m_binary.payload(*binary) : Region();
    Checker(&task->findings, QString(), build.origins).checkBuild(build);
    FcfHeader composed =
        header(build, payload.bytes, outputs ? outputs->imageName : QString(), task);
    ImageFiles image{outputs.value_or(Outputs()), !m_noCompanion, m_digest,
                     pageOf(composed, task->codec), payload};
    if (binary)
        image.fillerBytes =
            task->findings.valueOf(fillerBytes(m_padTo, image.page.size() + payload.bytes))
                .value_or(0);
    if (m_strict)
        task->findings.promoteWarnings();
    if (task->findings.hasErrors())
        return;
    if (const auto digest = digestIfUnchanged(&composed, image, task->codec)) {
        report(composed, image, *digest, false, task);
        return;
    }
    QByteArray digest;
    const Status written = image.write(
        m_force || m_ifChanged ? OutputFiles::Replace : OutputFiles::Keep, task->environment.out,
        task->progress("create", payload.bytes), task->report.json ? &digest : nullptr);
    if (task->findings.accept(written) && !outputs->toStandardOutput())
        report(composed, image, digest, true, task);
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
    auto outputs = task->findings.valueOf(Outputs::of(binary, output));
    if (outputs)
        guard(*outputs, task);
    return outputs;
}

void CreateCommand::guard(const Outputs& outputs, Task* task) const
{
    const bool isReplaced = m_force || m_ifChanged;
    OutputGuard::guardStandardOutput(outputs.toStandardOutput(), task);
    if (outputs.toStandardOutput()) {
        const auto refuse = [task](const QString& reason) {
            task->findings.error(ExitCode::Refused, StandardOutputLabel, "--output", reason);
        };
        if (!m_noCompanion)
            refuse("takes the image alone: give --no-companion as well");
        if (m_digest || task->report.json)
            refuse("takes the image alone: --digest and --json need a file");
        return;
    }
    OutputGuard::guard(outputs.image, isReplaced, task);
    const auto guard = [&](const QString& path, bool isWritten, const char* option) {
        if (isWritten)
            OutputGuard::guard(path, isReplaced, task);
        else
            OutputGuard::guardUnwritten(path, option, task);
    };
    guard(outputs.companion, !m_noCompanion, "--no-companion");
    guard(outputs.digest, m_digest, "--digest");
}

FcfHeader CreateCommand::header(const Build& build, qint64 binaryBytes, const QString& imageName,
                                Task* task) const
{
    FcfHeader header;
    header.setSizes(PelkFcfGeneratorFileInfo().measure(binaryBytes));
    build.describe(&header);
    header.fileName = imageName;
    m_build.stamp(&header, task);
    Checker(&task->findings, QString(), build.origins).checkTexts(header, task->codec);
    return header;
}

/// With --if-changed, if the outputs are there and differ from those that would be written in date
/// and time at most. Then \p header gets theirs.
std::optional<QByteArray> CreateCommand::digestIfUnchanged(FcfHeader* header, ImageFiles image,
                                                           QTextCodec* codec) const
{
    if (!m_ifChanged)
        return std::nullopt;
    Inputs inputs(nullptr, nullptr);
    const auto old = inputs.open(image.outputs.image, Validator::LargestFile, QString())
                         .and_then([codec](const InputFile& file) {
                             return HeaderPage::read(file, codec, ExitCode::NotValid);
                         });
    if (!old)
        return std::nullopt;
    FcfHeader same = *header;
    same.date = old->reading.header.date;
    same.time = old->reading.header.time;
    image.page = pageOf(same, codec);
    const auto filler = fillerBytes(m_padTo, image.page.size() + image.payload.bytes);
    image.fillerBytes = filler.value_or(0);
    auto digest = filler ? image.digestIfThere() : std::nullopt;
    if (digest)
        *header = same;
    return digest;
}

void CreateCommand::report(const FcfHeader& header, const ImageFiles& image,
                           const QByteArray& digest, bool isWritten, Task* task)
{
    const struct {
        bool isWanted;
        const char* name;
        QString path;
    } files[] = {{true, "image", image.outputs.image},
                 {image.hasCompanion, "companion", image.outputs.companion},
                 {image.hasDigest, "digest", image.outputs.digest}};
    for (const auto& file : files) {
        if (!file.isWanted)
            continue;
        task->report.print(isWritten ? file.path : QStringLiteral("%1: unchanged").arg(file.path));
        task->report.result[QLatin1String(file.name)] = file.path;
    }
    task->report.result["sha256"] = QString::fromLatin1(digest.toHex());
    task->report.result["changed"] = isWritten;
    task->report.result["header"] = BuildJson::header(header);
    task->report.isInPlace = true;
}

} // namespace

CommandPointer createCommand(CLI::App* app) { return std::make_unique<CreateCommand>(app); }
