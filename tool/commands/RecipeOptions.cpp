#include "tool/commands/RecipeOptions.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Task.h"
#include "tool/recipe/RecipeJson.h"

#include <QDir>
#include <QFileInfo>
#include <QTextCodec>

namespace {

constexpr char LikeOption[] = "--like";
constexpr char ConfigOption[] = "--config";
/// Earlier scripts call it so.
constexpr char SlotOption[] = "--slot";
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

/// The description in the file at \p path.
std::optional<QString> descriptionIn(const QString& path, const char* option, Task* task)
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

/// Reads the arguments of one option each into a recipe.
class ArgumentReader {
public:
    ArgumentReader(Recipe* recipe, Task* task) : m_recipe(recipe), m_task(task) {}

    void read(const std::string& argument, const RecipeField<QString>& field)
    {
        if (field.value == &Recipe::description)
            readDescription(argument, field);
        else
            m_recipe->*field.value = m_task->text(argument, field.option);
    }

    void read(const std::string& argument, const RecipeField<qint32>& field)
    {
        read(argument, field, &wholeNumber, "\"%1\" is not a number");
    }

    void read(const std::string& argument, const RecipeField<Version>& field)
    {
        read(argument, field, &Version::of, "\"%1\" is not two numbers like 1.12");
    }

    /// Functions have several arguments each; see readFunctions().
    void read(const std::string&, const RecipeField<QVector<FcfFunction>>&) const {}

    void readFunctions(const std::vector<std::string>& arguments)
    {
        if (arguments.empty())
            return;

        QVector<FcfFunction> functions;
        for (std::size_t index = 0; index < arguments.size(); ++index) {
            const std::size_t fieldIndex = index % FcfLayout::FunctionTextCount;
            if (fieldIndex == 0)
                functions.append(FcfFunction());

            const auto& field = FcfLayout::FunctionTexts[fieldIndex];
            functions.last().*field.value =
                m_task->text(arguments[index], "--function").value_or(QString());
        }
        m_recipe->functions = functions;
    }

private:
    /// "@FILE" is the text of a file, and "@@TEXT" the text "@TEXT".
    void readDescription(const std::string& argument, const RecipeField<QString>& field)
    {
        const bool isEscaped = argument.substr(0, 2) == "@@";
        const bool isFile = argument.substr(0, 1) == "@" && !isEscaped;
        if (!isFile) {
            m_recipe->description =
                m_task->text(isEscaped ? argument.substr(1) : argument, field.option);
            return;
        }

        const auto path = m_task->path(argument.substr(1), field.option);
        if (!path)
            return;

        m_recipe->description = descriptionIn(*path, field.option, m_task);
        m_recipe->origins[QLatin1String(field.name)] = *path;
    }

    template <class Value>
    void read(const std::string& argument, const RecipeField<Value>& field,
              std::optional<Value> (*parse)(const QString&), const QString& complaint)
    {
        const auto text = m_task->text(argument, field.option);
        if (!text)
            return;

        m_recipe->*field.value = parse(*text);
        if (!(m_recipe->*field.value))
            m_task->refuse(field.option, complaint.arg(shownText(*text)));
    }

    Recipe* m_recipe;
    Task* m_task;
};

/// The recipe in the file at \p path, with the text of the description file that it names.
std::optional<Recipe> readRecipe(const QString& path, Task* task)
{
    const auto json = wholeFile(path, RecipeJson::MaximumBytes, LikeOption, task);
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
        recipe->description = descriptionIn(file, "descriptionFile", task);
    }
    return *recipe;
}

/// Warns if \p fcf is not valid. Returns false, with an error, if it cannot be read.
bool warnOfErrors(const FcfFile& fcf, Task* task)
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
            fcf.file.label(), QLatin1String(LikeOption),
            QStringLiteral("is not valid, %1: %2; pelk-fcf verify reports all of it")
                .arg(shownText(errors.first().field), errors.first().reason));
    return true;
}

/// The recipe of the image or companion at \p path, which may be made anew from itself.
std::optional<Recipe> recipeOf(const QString& path, Task* task)
{
    auto file = task->findings.valueOf(task->inputs.open(
        path, FcfFileChecker::LargestFile, QLatin1String(LikeOption), InputOpener::Replaceable));
    if (!file)
        return std::nullopt;

    const auto fcf = task->readFcf(std::move(*file), Task::Whole, ExitCode::Refused);
    if (!fcf)
        return std::nullopt;

    if (!warnOfErrors(*fcf, task))
        return std::nullopt;
    return Recipe::of(fcf->page.reading.header);
}

} // namespace

void RecipeOptions::declare(CLI::App* app)
{
    forEachRecipeField([&](const auto& field) {
        if (std::is_same_v<decltype(field), const RecipeField<QVector<FcfFunction>>&>)
            Arguments::addRepeatedOption(app, field.option, FcfLayout::FunctionTextCount,
                                         &m_functions, field.type, field.help);
        else
            Arguments::addOption(app, field.option, &m_given[field.name], field.type, field.help);

        if (field.isRequired)
            Arguments::setGroup(app, field.option, "Required, unless --like gives it");
        if (field.option == std::string(ConfigOption))
            Arguments::addAlias(app, SlotOption, ConfigOption, &m_given[field.name]);
    });

    std::string footer = "Modules and their devices:\n";
    for (const QString& module : FcfTarget::modules())
        footer += QStringLiteral("  %1: %2\n")
                      .arg(module, FcfTarget::devicesOf(module).join(", "))
                      .toStdString();
    Arguments::setFooter(app, footer + '\n');

    Arguments::addOption(app, LikeOption, &m_like, "FILE",
                         "take what is not given from an image (.fcf), a companion (.txt) or a "
                         "recipe (.json; - is a recipe on standard input)");
}

Recipe RecipeOptions::recipe(Task* task) const
{
    Recipe recipe;
    readFields(&recipe, task);
    if (!m_like)
        return recipe;

    std::optional<Recipe> base = like(task);
    if (!base) {
        // What it would have given is not missing.
        forEachRecipeField([&](const auto& field) {
            if (!(recipe.*field.value))
                recipe.refused << QLatin1String(field.name);
        });
        return recipe;
    }

    // A device belongs to its module: another module's is of no use.
    if (recipe.module && recipe.module != base->module)
        base->device.reset();
    recipe.complete(*base, InputFile::labelOf(QFile::decodeName(m_like->c_str())));
    return recipe;
}

void RecipeOptions::readFields(Recipe* recipe, Task* task) const
{
    ArgumentReader reader(recipe, task);
    forEachRecipeField([&](const auto& field) {
        const auto given = m_given.find(field.name);
        if (given == m_given.end() || !given->second)
            return;

        reader.read(*given->second, field);
        if (!(recipe->*field.value))
            recipe->refused << QLatin1String(field.name);
    });
    reader.readFunctions(m_functions);
}

std::optional<Recipe> RecipeOptions::like(Task* task) const
{
    const std::optional<QString> path = task->path(*m_like, LikeOption);
    if (!path)
        return std::nullopt;

    if (*path == StandardStream || path->endsWith(".json"))
        return readRecipe(*path, task);
    if (path->endsWith(".fcf") || path->endsWith(".txt"))
        return recipeOf(*path, task);

    task->findings.refuse(*path, QLatin1String(LikeOption),
                          "the name ends with neither .fcf, .txt nor .json, in lower case");
    return std::nullopt;
}
