#include "tool/check/FcfFileChecker.h"
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

private:
    std::optional<std::string> m_file;
};

} // namespace

CommandPointer recipeCommand(CLI::App* app) { return std::make_unique<RecipeCommand>(app); }
