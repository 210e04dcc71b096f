#include "tool/build/BuildJson.h"
#include "tool/commands/Command.h"

#include <QJsonDocument>

namespace {

/// Writes the recipe of an image or a companion, which create takes.
class RecipeCommand : public Command {
public:
    explicit RecipeCommand(CLI::App* parent)
        : Command(parent, "recipe", "Write the recipe that create --like takes")
    {
        Argument::addRequired(app, "FILE", &m_file, "",
                              "an image or a companion; - is standard input");
    }

    void run(Task* task) override
    {
        const auto fcf = task->openFcf(*m_file, Task::PageOnly);
        if (!fcf)
            return;
        const FcfHeader& header = fcf->page.reading.header;
        const Build build = Build::of(header);
        if (build.module && task->report.json)
            task->report.result["recipe"] =
                QJsonDocument::fromJson(BuildJson::recipe(build)).object();
        else if (build.module)
            task->report.printRaw(BuildJson::recipe(build));
        else
            task->findings.error(ExitCode::NotValid, fcf->file.label(), "moduleCode",
                                 QStringLiteral("%1 with device code %2 is of no known target")
                                     .arg(header.moduleCode)
                                     .arg(header.deviceCode));
    }

private:
    std::optional<std::string> m_file;
};

} // namespace

CommandPointer recipeCommand(CLI::App* app) { return std::make_unique<RecipeCommand>(app); }
