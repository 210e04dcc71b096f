#include "tool/commands/RecipeFile.h"

#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Task.h"
#include "tool/recipe/RecipeJson.h"

#include <QDir>
#include <QFileInfo>
#include <QTextCodec>

namespace {

/// In bytes. It is many times what a page has room for, so that a message can say by how much a
/// text is too long.
constexpr int LargestDescriptionFile = 256 * 1024;

/// Everything in the file at \p path, if it is no more than \p limit bytes.
std::optional<QByteArray> wholeFile(const QString& path, qint64 limit, const char* option,
                                    Task* task)
{
    auto bytes = task->bytesOf(path, limit + 1, option);
    if (!bytes || bytes->size() <= limit)
        return bytes;

    task->findings.refuse(InputFile::labelOf(path), QLatin1String(option),
                          QStringLiteral("has more than %1 bytes").arg(limit));
    return std::nullopt;
}

/// The recipe in the file at \p path, with the text of the description file that it names.
std::optional<Recipe> readRecipe(const QString& path, const char* option, Task* task)
{
    const auto json = wholeFile(path, RecipeJson::MaximumBytes, option, task);
    if (!json)
        return std::nullopt;

    auto recipe = RecipeJson::read(*json, InputFile::labelOf(path));
    if (!recipe) {
        for (const Finding& error : recipe.error())
            task->findings.add(error);
        return std::nullopt;
    }

    if (recipe->descriptionFile) {
        const QString file = QFileInfo(path).dir().filePath(*recipe->descriptionFile);
        recipe->description = RecipeFile::readDescription(file, "descriptionFile", task);
    }
    return *recipe;
}

/// Warns if \p fcf is not valid. Returns false, with an error, if it cannot be read.
bool warnOfErrors(const FcfFile& fcf, const char* option, Task* task)
{
    const QList<Finding> errors = FcfFileChecker::errorsOf(fcf, task->codec);
    for (const Finding& error : errors) {
        if (error.exitCode != ExitCode::NotValid) {
            task->findings.add(error);
            return false;
        }
    }

    if (!errors.isEmpty())
        task->findings.warning(
            fcf.file.label(), QLatin1String(option),
            QStringLiteral("is not valid, %1: %2; pelk-fcf verify reports all of it")
                .arg(shownText(errors.first().field), errors.first().reason));
    return true;
}

/// The recipe of the image or companion at \p path, which may be made anew from itself.
std::optional<Recipe> recipeOf(const QString& path, const char* option, Task* task)
{
    auto file = task->findings.valueOf(task->inputs.open(
        path, FcfFileChecker::LargestFile, QLatin1String(option), InputOpener::Replaceable));
    if (!file)
        return std::nullopt;

    const auto fcf = task->readFcf(std::move(*file), Task::Whole, ExitCode::Refused);
    if (!fcf)
        return std::nullopt;

    if (!warnOfErrors(*fcf, option, task))
        return std::nullopt;
    return Recipe::of(fcf->page.reading.header);
}

} // namespace

std::optional<QString> RecipeFile::readDescription(const QString& path, const char* option,
                                                   Task* task)
{
    const auto bytes = wholeFile(path, LargestDescriptionFile, option, task);
    if (!bytes)
        return std::nullopt;

    auto text = decodedText(bytes->toStdString(), task->codec, QLatin1String(option));
    if (!text) {
        text.error().file = InputFile::labelOf(path);
        text.error().reason = QStringLiteral("is not text in the encoding of this locale, %1")
                                  .arg(QString::fromLatin1(task->codec->name()));
        task->findings.add(text.error());
        return std::nullopt;
    }

    // How editors on other systems mark the file and end its lines is no part of the text.
    if (text->startsWith(QChar::ByteOrderMark))
        text->remove(0, 1);
    return text->replace("\r\n", "\n");
}

std::optional<Recipe> RecipeFile::read(const std::string& argument, const char* option, Task* task)
{
    const std::optional<QString> path = task->path(argument, option);
    if (!path)
        return std::nullopt;

    if (*path == StandardStream || path->endsWith(".json"))
        return readRecipe(*path, option, task);
    if (path->endsWith(".fcf") || path->endsWith(".txt"))
        return recipeOf(*path, option, task);

    task->findings.refuse(*path, QLatin1String(option),
                          "the name ends with neither .fcf, .txt nor .json, in lower case");
    return std::nullopt;
}
