#include "RecipeCommand.h"

#include "tool/HeaderPage.h"
#include "tool/InputFile.h"
#include "tool/Recipe.h"
#include "tool/Session.h"

#include <QJsonDocument>

void RecipeCommand::declare(CLI::App* app)
{
    addOperand(app, "FILE", &m_file, "an image or a companion; - is standard input");
}

void RecipeCommand::run(Session* session)
{
    const std::optional<QString> path = session->path(m_file, QStringLiteral("FILE"));
    InputFile file;
    HeaderPage page;
    if (!path || !file.open(*path, FcfExactReader::MaximumBytes, QStringLiteral("FILE"), session) ||
        !page.read(&file, ExitCode::NotValid, session))
        return;
    const Build build = Build::of(page.reading.header);
    if (build.module && session->json)
        session->result["recipe"] = QJsonDocument::fromJson(Recipe::write(build)).object();
    else if (build.module)
        session->printRaw(Recipe::write(build));
    else
        session->findings.error(ExitCode::NotValid, file.label(), QStringLiteral("moduleCode"),
                                QStringLiteral("%1 with device code %2 stands for no target")
                                    .arg(page.reading.header.moduleCode)
                                    .arg(page.reading.header.deviceCode));
}
