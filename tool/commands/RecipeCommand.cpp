#include "tool/commands/Command.h"
#include "tool/recipe/RecipeJson.h"

#include <QJsonDocument>

namespace {

/// Writes the recipe of an image or a companion, which create takes.
class RecipeCommand : public Command {
public:
    explicit RecipeCommand(CLI::App* parent)
        : Command(parent, "recipe", "Write the recipe that create --like takes")
    {
        Arguments::addRequired(app, "FILE", &m_file, "",
                               "an image or a companion; - is standard input");
    }

    void run(Task* task) override
    {
        const auto fcf = task->openFcf(*m_file, Task::PageOnly);
        if (!fcf)
            return;

        const FcfHeader& header = fcf->page.reading.header;
        const Recipe recipe = Recipe::of(header);
        if (!recipe.module) {
            task->findings.error(ExitCode::NotValid, fcf->file.label(), "moduleCode",
                                 QStringLiteral("%1 with device code %2 is of no known target")
                                     .arg(header.moduleCode)
                                     .arg(header.deviceCode));
            return;
        }

        const QByteArray json = RecipeJson::write(recipe);
        if (task->report.json)
            task->report.result["recipe"] = QJsonDocument::fromJson(json).object();
        else
            task->report.printRaw(json);
    }

private:
    std::optional<std::string> m_file;
};

} // namespace

CommandPointer recipeCommand(CLI::App* app) { return std::make_unique<RecipeCommand>(app); }
