#include "tool/build/BuildJson.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"

#include <QJsonDocument>

namespace {

/// Writes the recipe of an image or a companion, which create takes.
class RecipeCommand : public Command {
public:
    const char* name() const override { return "recipe"; }
    const char* summary() const override { return "Write the recipe that create --like takes"; }
    void declare(CLI::App* app) override
    {
        Arguments::addOperand(app, "FILE", &m_file, "an image or a companion; - is standard input");
    }
    void run(Task* task) override;

private:
    std::string m_file;
};

void RecipeCommand::run(Task* task)
{
    const std::optional<QString> path = task->path(m_file, "FILE");
    const auto fcf =
        path ? task->openFcf(*path, FcfExactReader::MaximumBytes, "FILE") : std::nullopt;
    if (!fcf)
        return;
    const FcfHeader& header = fcf->page.reading.header;
    const Build build = Build::of(header);
    if (build.module && task->report.json)
        task->report.result["recipe"] = QJsonDocument::fromJson(BuildJson::recipe(build)).object();
    else if (build.module)
        task->report.printRaw(BuildJson::recipe(build));
    else
        task->findings.error(ExitCode::NotValid, fcf->file.label(), QStringLiteral("moduleCode"),
                             QStringLiteral("%1 with device code %2 stands for no target")
                                 .arg(header.moduleCode)
                                 .arg(header.deviceCode));
}

} // namespace

std::unique_ptr<Command> recipeCommand() { return std::make_unique<RecipeCommand>(); }
