#include "ExtractCommand.h"

#include "fcf/FcfWriter.h"
#include "tool/HeaderPage.h"
#include "tool/InputFile.h"
#include "tool/Outputs.h"
#include "tool/Progress.h"
#include "tool/Session.h"
#include "tool/StagedFiles.h"
#include "tool/Validator.h"

#include <CLI/CLI.hpp>

namespace {

bool copyPayload(InputFile* file, const HeaderPage& page, QIODevice* output, Session* session,
                 QString* error)
{
    const qint64 bytes = file->size() - page.bytes;
    Progress progress(session, QStringLiteral("extract"), bytes);
    InputSource behindPage(file, page.bytes);
    MeteredSource payload(&behindPage, &progress);
    return FcfWriter::copyPayload(&payload, bytes, output, error);
}

bool writePayload(InputFile* file, const HeaderPage& page, const QString& path, bool force,
                  Session* session, FileError* error)
{
    error->path = path;
    if (path == StandardStream)
        return copyPayload(file, page, session->environment().out, session, &error->reason);
    StagedFiles files(session->environment().beforeStep);
    QFile* const output = files.add(path, error);
    if (!output || !copyPayload(file, page, output, session, &error->reason) ||
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
    session->outIsTaken = output == StandardStream;
    InputFile file;
    HeaderPage page;
    if (!path || !output ||
        !file.open(*path, Validator::LargestFile, QStringLiteral("FCF"), session))
        return;
    if (session->outIsTaken && session->json)
        session->findings.error(ExitCode::Refused, StandardOutputLabel, QStringLiteral("--output"),
                                QStringLiteral("takes the payload alone: --json needs a file"));
    if (!session->outIsTaken)
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
