#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/BinaryOptions.h"
#include "tool/commands/Command.h"
#include "tool/commands/DumpOptions.h"
#include "tool/commands/RecipeFile.h"
#include "tool/commands/SidecarOptions.h"
#include "tool/recipe/HeaderJson.h"
#include "tool/recipe/RecipeJson.h"

namespace {

/// Checks whether files are valid images or companions.
class VerifyCommand : public Command {
public:
    explicit VerifyCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    QJsonObject verifyFile(const QString& path, Task* task);
    std::optional<FcfFileChecker::Kind> kindOf(const QString& path, Task* task) const;
    void verify(const QString& path, FcfFileChecker::Kind kind, Task* task, QJsonObject* result);
    void compareRecipe(const FcfFile& fcf, Task* task) const;
    bool compareBinary(const FcfFileChecker& checker, const HeaderPage& page, Task* task);

    std::vector<std::string> m_files;
    BinaryOptions m_binary;
    SidecarOptions m_sidecars;
    DumpOptions m_dump;
    std::optional<std::string> m_like;
    std::optional<std::string> m_type;
};

VerifyCommand::VerifyCommand(CLI::App* parent)
    : Command(parent, "verify", "Say whether images and companions are valid")
{
    Arguments::addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
    m_binary.declareOption(app);
    m_sidecars.declareNaming(app);
    m_dump.declare(app);
    Arguments::addOption(app, RecipeFile::Option, &m_like, "FILE",
                         "what the header must say: a recipe (.json; - is one on standard input), "
                         "an image (.fcf) or a companion (.txt)");
    Arguments::addOption(app, "--type", &m_type, "image|companion",
                         "what FILE is (default: by its name, .fcf or .txt)");
}

void VerifyCommand::run(Task* task)
{
    task->report.findingsAreResults = true;
    const bool isAboutOne =
        m_binary.isGiven() || m_sidecars.hasNamedCompanion() || m_like || m_dump.isGiven();
    if (m_files.size() > 1 && isAboutOne) {
        task->refuse("FILE", "--bin, --companion, --like and --offset are about one file");
        return;
    }

    // What is beside a dump is of all of it.
    if (m_dump.isGiven())
        m_sidecars.skipUnnamed();
    m_sidecars.setImageCount(static_cast<int>(m_files.size()));

    QJsonArray results;
    for (const std::string& argument : m_files) {
        const std::optional<QString> path = task->path(argument, "FILE");
        if (path)
            results.append(verifyFile(*path, task));
    }
    task->report.result["files"] = results;
}

/// Returns the result of one file as JSON.
QJsonObject VerifyCommand::verifyFile(const QString& path, Task* task)
{
    const QString label = InputFile::labelOf(path);
    QJsonObject result{{"file", label}};
    const int findingsBefore = task->findings.count();

    const std::optional<FcfFileChecker::Kind> kind = kindOf(path, task);
    if (kind == FcfFileChecker::Companion && m_sidecars.hasNamedDigest()) {
        task->findings.refuse(path, "--digest", "is of an image; this is a companion");
    } else if (kind) {
        verify(path, *kind, task, &result);
    }

    const ExitCode verdict = task->findings.exitCode(findingsBefore);
    const bool isKnown = verdict == ExitCode::Done || verdict == ExitCode::NotValid;
    result["valid"] = isKnown ? QJsonValue(verdict == ExitCode::Done) : QJsonValue();
    if (isKnown)
        task->report.print(QStringLiteral("%1: %2").arg(
            shownText(label), verdict == ExitCode::Done ? "valid" : "not valid"));
    return result;
}

/// What --type gives, else the ending of the name, and never what is in the file: an image that was
/// cut off behind its header looks just like a companion. In a dump it is an image.
std::optional<FcfFileChecker::Kind> VerifyCommand::kindOf(const QString& path, Task* task) const
{
    if (m_dump.isGiven() && m_type == "companion") {
        task->findings.refuse(path, "--offset", "is of an image, and --type of a companion");
        return std::nullopt;
    }

    const bool isNamedImage = m_dump.isGiven() || path.endsWith(".fcf");
    if (m_type == "image" || (!m_type && isNamedImage))
        return FcfFileChecker::Image;
    if (m_type == "companion" || (!m_type && path.endsWith(".txt")))
        return FcfFileChecker::Companion;

    task->findings.refuse(
        path, "--type",
        m_type ? "is neither \"image\" nor \"companion\""
               : "is missing: the name ends with neither .fcf nor .txt, in lower case");
    return std::nullopt;
}

void VerifyCommand::verify(const QString& path, FcfFileChecker::Kind kind, Task* task,
                           QJsonObject* result)
{
    auto set = m_sidecars.open(path, kind == FcfFileChecker::Image, task);
    const auto fcf = set ? m_dump.read(std::move(set->file), task) : std::nullopt;
    if (!fcf)
        return;

    const auto& [file, page] = *fcf;
    const FcfFileChecker checker(&file, kind, task->codec, &task->findings);
    checker.check(page);
    SidecarOptions::checkCompanion(checker, page, set->companion);
    if (m_like)
        compareRecipe(*fcf, task);
    const bool isCompared = compareBinary(checker, page, task);
    if (kind == FcfFileChecker::Companion)
        return;

    const bool hasDigest = m_sidecars.checkDigest(*fcf, set->digest, task);
    const bool payloadIsKnown = hasDigest || isCompared;
    (*result)["payloadCompared"] = payloadIsKnown;
    (*result)["imageBytes"] = page.imageBytes();
    (*result)["fillerBytes"] = page.fillerBytes;
    if (!payloadIsKnown)
        task->findings.note(file.label(), PayloadField,
                            "the header holds no checksum of the payload, so only its "
                            "length was checked; --bin or a digest checks more");
}

/// Checks that the header says what the file of --like does. What that leaves open may be anything.
void VerifyCommand::compareRecipe(const FcfFile& fcf, Task* task) const
{
    std::optional<Recipe> recipe = RecipeFile::read(*m_like, RecipeFile::Option, task);
    if (!recipe)
        return;

    const FcfHeader& header = fcf.page.reading.header;
    FcfHeader meant = header;
    recipe->complete(Recipe::of(header), QString());
    recipe->fill(&meant);

    const QString like = shownText(InputFile::labelOf(QFile::decodeName(m_like->c_str())));
    const QStringList fieldsOfRecipes =
        RecipeJson::fields(Recipe::of(FcfHeader())).keys() + QStringList{"module", "device"};
    for (const auto& value : HeaderJson::differences(meant, header)) {
        const QJsonObject difference = value.toObject();
        const QString field = difference["field"].toString();
        // A version and a target have numbers beside them, which differ along with them.
        if (!fieldsOfRecipes.contains(field.section(QLatin1Char('['), 0, 0)))
            continue;
        task->findings
            .error(ExitCode::NotValid, fcf.file.label(), field,
                   QStringLiteral("is not that of %1").arg(like))
            .comparing(difference["a"].toVariant().toString(),
                       difference["b"].toVariant().toString());
    }
}

/// Compares the payload with the binary, if one was given. Returns whether it did.
bool VerifyCommand::compareBinary(const FcfFileChecker& checker, const HeaderPage& page, Task* task)
{
    const auto binary = m_binary.isGiven() ? m_binary.open(task) : std::nullopt;
    if (!binary)
        return false;

    checker.compareBinary(page, m_binary.payload(*binary),
                          task->progress("verify", binary->size()));
    return true;
}

} // namespace

CommandPointer verifyCommand(CLI::App* app) { return std::make_unique<VerifyCommand>(app); }
