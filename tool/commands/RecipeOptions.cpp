#include "tool/commands/RecipeOptions.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/RecipeFile.h"
#include "tool/commands/Task.h"

namespace {

constexpr char ConfigOption[] = "--config";
/// Earlier scripts call it so.
constexpr char SlotOption[] = "--slot";

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

        m_recipe->description = RecipeFile::readDescription(*path, field.option, m_task);
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

    Arguments::addOption(app, RecipeFile::Option, &m_like, "FILE",
                         "take what is not given from an image (.fcf), a companion (.txt) or a "
                         "recipe (.json; - is a recipe on standard input)");
}

Recipe RecipeOptions::recipe(Task* task) const
{
    Recipe recipe;
    readFields(&recipe, task);
    if (!m_like)
        return recipe;

    std::optional<Recipe> base = RecipeFile::read(*m_like, RecipeFile::Option, task);
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
