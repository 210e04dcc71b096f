#include "ExtractCommand.h"

#include "tool/HeaderPage.h"
#include "tool/InputFile.h"
#include "tool/KilledRun.h"
#include "tool/Outputs.h"
#include "tool/PayloadCopy.h"
#include "tool/Session.h"
#include "tool/StagedFiles.h"
#include "tool/Validator.h"

#include <CLI/CLI.hpp>

namespace {

bool writePayload(InputFile* file, const HeaderPage& page, const QString& path, bool force,
                  Session* session, FileError* error)
{
    error->path = path;
    if (path == StandardStream)
        return copyPayload(*file, page.bytes, "extract", session->environment().out, session,
                           error);
    // The file may be one of several that a run of another command left half in place.
    if (!KilledRun::around(path).undo(error))
        return false;
    StagedFiles files(session->environment().beforeStep);
    QFile* const output = files.add(path, error);
    if (!output || !copyPayload(*file, page.bytes, "extract", output, session, error) ||
        !files.place(force, error))
        return false;
    warnOfLeftBehind(files, session);
    return true;
}

} // namespace

void ExtractCommand::declare(CLI::App* app)
{
    addOperand(app, "FCF", &m_file, "an image; - is standard input");
    addOperand(app, "--output", &m_output, "where the payload goes; - is standard output")
        ->type_name("FILE");
    app->add_flag("--force", m_force, "replace an output that exists");
}

void ExtractCommand::run(Session* session)
{
    const std::optional<QString> path = session->path(m_file, QStringLiteral("FCF"));
    const std::optional<QString> output = session->path(m_output, QStringLiteral("--output"));
    // As JSON it is refused, and that is what goes there.
    session->outIsTaken = output == StandardStream && !session->json;
    InputFile file;
    HeaderPage page;
    if (!path || !output ||
        !file.open(*path, Validator::LargestFile, QStringLiteral("FCF"), session))
        return;
    if (output == StandardStream && session->json)
        session->findings.error(ExitCode::Refused, StandardOutputLabel, QStringLiteral("--output"),
                                QStringLiteral("takes the payload alone: --json needs a file"));
    guardStandardOutput(session);
    if (output != StandardStream)
        guardOutput(*output, m_force, session);
    if (session->findings.hasErrors() || !page.read(&file, ExitCode::NotValid, session))
        return;
    Validator(&file, Validator::Image, session).validate(page);
    session->findings.dropNotes();
    if (!session->findings.hasErrors())
        extract(&file, page, *output, session);
}

void ExtractCommand::extract(InputFile* file, const HeaderPage& page, const QString& output,
                             Session* session) const
{
    FileError error;
    if (!writePayload(file, page, output, m_force, session, &error)) {
        refuseUnwritten(error, session);
        return;
    }
    if (!session->outIsTaken)
        session->print(output);
    session->result["payload"] = output;
    session->result["payloadBytes"] = file->size() - page.bytes;
}
