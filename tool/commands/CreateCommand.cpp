#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/check/NewImageChecker.h"
#include "tool/commands/BinaryOptions.h"
#include "tool/commands/Command.h"
#include "tool/commands/DepFileOptions.h"
#include "tool/commands/ImageWriter.h"
#include "tool/commands/OutputChecks.h"
#include "tool/commands/RecipeOptions.h"
#include "tool/commands/TimestampOptions.h"
#include "tool/recipe/HeaderJson.h"

namespace {

/// The whole header page of \p header.
QByteArray pageOf(const FcfHeader& header, QTextCodec* codec)
{
    const FcfWriter writer(codec);
    const QByteArray page = writer.compose(header);
    return page + writer.fillerFor(static_cast<int>(page.size()));
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
    const qint64 bytes = byteCount(text).value_or(0);
    if (bytes <= 0 || bytes > FcfFileChecker::LargestFile)
        return failure(ExitCode::Refused, QString(), "--pad-to",
                       QStringLiteral("\"%1\" is neither page, block nor a number of bytes like "
                                      "135168, 0x21000, 132K or 2M")
                           .arg(shownText(text)));
    if (bytes < imageBytes)
        return failure(ExitCode::Refused, QString(), "--pad-to",
                       QStringLiteral("the image has %1 bytes already").arg(imageBytes));
    return bytes - imageBytes;
}

/// Makes an image and its companion of a binary.
class CreateCommand : public Command {
public:
    explicit CreateCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    /// What is to be written. The image refers to the binary.
    struct Plan {
        FcfHeader header;
        std::optional<InputFile> binary;
        ImageWriter image;
        /// With --if-changed, the image that is there, if it stays as it is.
        std::optional<ImageWriter::Old> old;
    };

    /// The files of a run that were written.
    struct Written {
        bool image = true;
        bool companion = true;
        bool digest = true;
    };

    std::unique_ptr<Plan> plan(Task* task);
    std::optional<ImagePaths> paths(const InputFile& binary, Task* task);
    void checkFiles(const ImagePaths& paths, Task* task) const;
    void checkStandardOutput(Task* task) const;
    FcfHeader header(const Recipe& recipe, qint64 binaryBytes, const QString& imageName,
                     Task* task) const;
    bool isReplacing() const { return m_force || m_ifChanged; }
    void findUnchanged(Plan* plan, QTextCodec* codec) const;
    static void checkUnwritten(const Plan& plan, Task* task);
    void write(const Plan& plan, Task* task) const;
    static void writeMissing(const Plan& plan, Task* task);
    static void report(const Plan& plan, const QByteArray& digest, const Written& written,
                       Task* task);

    RecipeOptions m_recipe;
    TimestampOptions m_timestamp;
    BinaryOptions m_binary;
    DepFileOptions m_depFile;
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
    m_recipe.declare(app);
    m_timestamp.declare(app);
    Arguments::addOption(app, "-o,--output", &m_output, "FILE",
                         "the image, its name ending with .fcf; - is standard output (default: "
                         "BIN with .fcf in place of .bin)");
    Arguments::addFlag(app, "--no-companion", &m_noCompanion, "write no companion (.txt)");
    Arguments::addFlag(app, "--digest", &m_digest,
                       "write the image's SHA-256 beside it (.fcf.sha256)");
    Arguments::addOption(app, "--pad-to", &m_padTo, "page|block|BYTES",
                         "fill the image with 0xFF to the end of a page or block, or to a size "
                         "(default: no filling)");
    Arguments::addFlag(
        app, "--if-changed", &m_ifChanged,
        "replace outputs that exist, but leave them untouched where nothing but date and "
        "time would change");
    m_depFile.declare(app);
    Arguments::addFlag(app, "-f,--force", &m_force, "replace outputs that exist");
    Arguments::addFlag(app, "--strict", &m_strict, "take warnings for errors");
}

void CreateCommand::run(Task* task)
{
    task->findings.setSubject(m_binary.label());
    const std::unique_ptr<Plan> plan = this->plan(task);
    if (m_strict)
        task->findings.promoteWarnings();
    if (task->findings.hasErrors())
        return;

    if (plan->old)
        writeMissing(*plan, task);
    else
        write(*plan, task);
    if (!task->findings.hasErrors())
        m_depFile.write(plan->image.paths, task);
}

void CreateCommand::write(const Plan& plan, Task* task) const
{
    const ImageWriter& image = plan.image;
    const auto existing = isReplacing() ? OutputTransaction::Replace : OutputTransaction::Keep;
    const auto digest = task->findings.valueOf(
        image.write(existing, task->environment.out, task->progress("create", image.payload.bytes),
                    task->report.json));
    if (digest && !image.paths.toStandardOutput())
        report(plan, *digest, Written(), task);
}

/// Writes what is missing or wrong beside an image that stays as it is.
void CreateCommand::writeMissing(const Plan& plan, Task* task)
{
    const ImageWriter::Old& old = *plan.old;
    ImageWriter missing = plan.image;
    missing.hasCompanion = missing.hasCompanion && !missing.isCompanionRight();
    missing.hasDigest = missing.hasDigest && !missing.isDigestRight(old.digest);
    if (task->findings.accept(missing.writeSidecars(old)))
        report(plan, old.digest, {false, missing.hasCompanion, missing.hasDigest}, task);
}

/// Reads and checks all that the image is made of, as far as that goes: an error in one input does
/// not hide those in others.
std::unique_ptr<CreateCommand::Plan> CreateCommand::plan(Task* task)
{
    auto plan = std::make_unique<Plan>();
    const Recipe recipe = m_recipe.recipe(task);

    plan->binary = m_binary.open(task);
    ImageWriter& image = plan->image;
    image.hasCompanion = !m_noCompanion;
    image.hasDigest = m_digest;
    if (plan->binary) {
        m_binary.check(*plan->binary, task);
        image.paths = paths(*plan->binary, task).value_or(ImagePaths());
        image.payload = m_binary.payload(*plan->binary);
    }

    NewImageChecker(&task->findings, QString(), recipe.origins).checkRecipe(recipe);
    plan->header = header(recipe, image.payload.bytes, image.paths.imageName, task);
    image.page = pageOf(plan->header, task->codec);
    if (plan->binary) {
        const qint64 imageBytes = image.page.size() + image.payload.bytes;
        image.fillerBytes = task->findings.valueOf(fillerBytes(m_padTo, imageBytes)).value_or(0);
    }

    if (m_ifChanged && !task->findings.hasErrors())
        findUnchanged(plan.get(), task->codec);
    checkUnwritten(*plan, task);
    return plan;
}

std::optional<ImagePaths> CreateCommand::paths(const InputFile& binary, Task* task)
{
    std::optional<QString> output;
    if (m_output) {
        output = task->path(*m_output, "--output");
        if (!output)
            return std::nullopt;
    }
    // With --json it is refused, and the refusal goes to standard output.
    task->report.outIsTaken = output == StandardStream && !task->report.json;

    auto paths = task->findings.valueOf(ImagePaths::of(binary, output));
    if (!paths)
        return std::nullopt;

    m_depFile.check(*paths, task);
    OutputChecks::checkStandardOutput(paths->toStandardOutput(), task);
    if (paths->toStandardOutput())
        checkStandardOutput(task);
    else
        checkFiles(*paths, task);
    return paths;
}

void CreateCommand::checkStandardOutput(Task* task) const
{
    if (!m_noCompanion)
        task->findings.refuse(StandardOutputLabel, "--output",
                              "takes the image alone: give --no-companion as well");
    if (m_digest || task->report.json)
        task->findings.refuse(StandardOutputLabel, "--output",
                              "takes the image alone: --digest and --json need a file");
}

void CreateCommand::checkFiles(const ImagePaths& paths, Task* task) const
{
    using FileKind::Kind;

    // With --force the image that was named is replaced, whatever it is.
    const auto imageKind = m_ifChanged && !m_force ? std::optional(Kind::Image) : std::nullopt;
    OutputChecks::checkFile(paths.image, {isReplacing(), imageKind}, task);

    if (!m_noCompanion)
        OutputChecks::checkFile(paths.companion, {isReplacing(), Kind::Companion}, task);
    if (m_digest)
        OutputChecks::checkFile(paths.digest, {isReplacing(), Kind::Digest}, task);
}

/// Checks what is beside the image and not written. It belongs to an image that stays as it is, if
/// it is right.
void CreateCommand::checkUnwritten(const Plan& plan, Task* task)
{
    const ImageWriter& image = plan.image;
    if (image.paths.image.isEmpty() || image.paths.toStandardOutput())
        return;

    const bool belongsCompanion = plan.old && image.isCompanionRight();
    if (!image.hasCompanion && !belongsCompanion)
        OutputChecks::checkUnwritten(image.paths.companion, "--no-companion", task);

    const bool belongsDigest = plan.old && image.isDigestRight(plan.old->digest);
    if (!image.hasDigest && !belongsDigest)
        OutputChecks::checkUnwritten(image.paths.digest, "--digest", task);
}

FcfHeader CreateCommand::header(const Recipe& recipe, qint64 binaryBytes, const QString& imageName,
                                Task* task) const
{
    FcfHeader header;
    header.setSizes(PelkFcfGeneratorFileInfo().measure(binaryBytes));
    recipe.fill(&header);
    header.fileName = imageName;
    m_timestamp.stamp(&header, task);

    NewImageChecker(&task->findings, QString(), recipe.origins).checkTexts(header, task->codec);
    return header;
}

/// Looks whether nothing but date and time of the image that is there would change. Then \p plan
/// gets those of that image.
void CreateCommand::findUnchanged(Plan* plan, QTextCodec* codec) const
{
    const auto old = InputOpener(nullptr, nullptr)
                         .open(plan->image.paths.image, FcfFileChecker::LargestFile, QString());
    if (!old)
        return;

    const auto oldPage = HeaderPage::read(*old, codec, ExitCode::NotValid);
    if (!oldPage)
        return;

    FcfHeader header = plan->header;
    header.date = oldPage->reading.header.date;
    header.time = oldPage->reading.header.time;

    ImageWriter image = plan->image;
    image.page = pageOf(header, codec);
    const auto filler = fillerBytes(m_padTo, image.page.size() + image.payload.bytes);
    if (!filler)
        return;
    image.fillerBytes = *filler;

    plan->old = image.findUnchanged();
    if (!plan->old)
        return;
    plan->header = header;
    plan->image = image;
}

void CreateCommand::report(const Plan& plan, const QByteArray& digest, const Written& written,
                           Task* task)
{
    const auto addFile = [&](const char* name, const QString& path, bool isWritten) {
        if (isWritten || !task->report.quiet)
            task->report.print(shownText(path, WholeText) +
                               (isWritten ? QString() : QString(": unchanged")));
        task->report.result[QLatin1String(name)] = path;
    };

    const ImageWriter& image = plan.image;
    addFile("image", image.paths.image, written.image);
    if (image.hasCompanion)
        addFile("companion", image.paths.companion, written.companion);
    if (image.hasDigest)
        addFile("digest", image.paths.digest, written.digest);

    task->report.result["sha256"] = QString::fromLatin1(digest.toHex());
    task->report.result["changed"] = written.image;
    task->report.result["header"] = HeaderJson::object(plan.header);
    task->report.isInPlace = true;
}

} // namespace

CommandPointer createCommand(CLI::App* app) { return std::make_unique<CreateCommand>(app); }
