#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Command.h"
#include "tool/commands/RecipeFile.h"
#include "tool/recipe/RecipeJson.h"

#include <QJsonDocument>

namespace {

/// Writes the recipe of an image or a companion, which create takes, or checks a recipe.
class RecipeCommand : public Command {
public:
    explicit RecipeCommand(CLI::App* parent);
    void run(Task* task) override;

private:
    void write(Task* task) const;
    void check(Task* task) const;
    static void noteMissing(Recipe* recipe, const QString& label, Task* task);
    static void noteUnknown(const FcfHeader& header, const QString& label, Task* task);

    std::optional<std::string> m_file;
    bool m_check = false;
};

RecipeCommand::RecipeCommand(CLI::App* parent)
    : Command(parent, "recipe", "Write the recipe that create --like takes, or check one")
{
    Arguments::addRequired(app, "FILE", &m_file, "",
                           "an image or a companion, or with --check a recipe (.json); - is "
                           "standard input");
    Arguments::addFlag(app, "--check", &m_check,
                       "say whether create would take this recipe, as far as that can be known "
                       "without a binary");
}

void RecipeCommand::run(Task* task)
{
    if (m_check)
        check(task);
    else
        write(task);
}

void RecipeCommand::write(Task* task) const
{
    const auto fcf = task->openFcf(*m_file, Task::Whole);
    if (!fcf)
        return;

    // What is damaged is not taken over into the next build.
    const QList<Finding> errors = FcfFileChecker::errorsOf(*fcf, task->codec);
    for (const Finding& error : errors)
        task->findings.add(error);
    if (!errors.isEmpty())
        return;

    const QByteArray json = RecipeJson::write(Recipe::of(fcf->page.reading.header));
    if (task->report.json)
        task->report.result["recipe"] = QJsonDocument::fromJson(json).object();
    else
        task->report.printRaw(json);
}

/// Checks a recipe as create does.
void RecipeCommand::check(Task* task) const
{
    std::optional<Recipe> recipe = RecipeFile::read(*m_file, "FILE", task);
    if (!recipe)
        return;

    const QString label = InputFile::labelOf(QFile::decodeName(m_file->c_str()));
    noteMissing(&*recipe, label, task);
    const NewImageChecker checker(&task->findings, label);
    checker.checkRecipe(*recipe);

    FcfHeader header;
    recipe->fill(&header);
    checker.checkTexts(header, task->codec);
    if (task->findings.hasErrors())
        return;

    noteUnknown(header, label, task);
    task->report.print(QStringLiteral("%1: valid").arg(shownText(label)));
    task->report.result["recipe"] = QJsonDocument::fromJson(RecipeJson::write(*recipe)).object();
}

/// Notes what the recipe leaves to the options of create.
void RecipeCommand::noteMissing(Recipe* recipe, const QString& label, Task* task)
{
    forEachRecipeField([&](const auto& field) {
        const QString name = QLatin1String(field.name);
        if (!field.isRequired || recipe->*field.value)
            return;

        task->findings.note(
            label, name,
            QStringLiteral("is not given: create needs %1").arg(QLatin1String(field.option)));
        recipe->refused << name;
    });
}

/// Notes what only create knows of the header, and the room that is left for it.
void RecipeCommand::noteUnknown(const FcfHeader& header, const QString& label, Task* task)
{
    const auto bytes = FcfWriter(task->codec).compose(header).size();
    task->findings.note(
        label, "text",
        QStringLiteral(
            "the binary, the name of the image and the date were not checked; the "
            "header page has room for %1 bytes of name, date, time and what is not given")
            .arg(FcfLayout::PageBytes - bytes));
}

} // namespace

CommandPointer recipeCommand(CLI::App* app) { return std::make_unique<RecipeCommand>(app); }
