#include "CreateCommand.h"

#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "tool/Checker.h"
#include "tool/Digest.h"
#include "tool/HeaderJson.h"
#include "tool/ImageWriter.h"
#include "tool/InputFile.h"
#include "tool/KilledRun.h"
#include "tool/PartialFile.h"
#include "tool/PayloadKind.h"
#include "tool/Session.h"
#include "tool/StagedFiles.h"
#include "tool/Stamp.h"

#include <CLI/CLI.hpp>

namespace {

/// Puts the image and what goes with it under their temporary names and then in place.
bool stageAndPlace(ImageWriter* writer, InputFile* binary, const Outputs& outputs, bool force,
                   Session* session, FileError* error)
{
    session->environment().beforeStep("undo");
    if (!KilledRun(outputs.image(), outputs.companion()).undo(error))
        return false;
    StagedFiles files(session->environment().beforeStep);
    QFile* const image = files.add(outputs.image(), error);
    if (!image)
        return false;
    // What is not written this time may have been by a run that was killed. One that a run still
    // writes is locked, and stays.
    PartialFile::clear(outputs.companion());
    PartialFile::clear(outputs.digest());

    error->path = outputs.image();
    if (!writer->write(*binary, image, outputs.hasDigest, error))
        return false;
    const struct {
        bool wanted;
        QString path;
        QByteArray bytes;
    } others[] = {
        {outputs.hasCompanion, outputs.companion(), writer->page()},
        {outputs.hasDigest, outputs.digest(), Digest::line(writer->digest(), outputs.image())}};
    for (const auto& other : others) {
        if (!other.wanted)
            continue;
        QFile* const file = files.add(other.path, error);
        if (!file)
            return false;
        error->path = other.path;
        if (!FcfWriter::writeAll(file, other.bytes, &error->reason))
            return false;
    }
    if (!files.place(force, error))
        return false;
    warnOfLeftBehind(files, session);
    return true;
}

} // namespace

void CreateCommand::declare(CLI::App* app)
{
    addOperand(app, "BIN", &m_binary, "the binary; - is standard input");
    m_build.declare(app);
    addOption(app, "--output", &m_output, "FILE",
              "the image, its name ending with .fcf; - is standard output");
    addOption(app, "--date-time", &m_dateTime, "YYYY-MM-DDTHH:MM:SS",
              "the date and time in the header, in place of SOURCE_DATE_EPOCH or the clock");
    addOption(app, "--date-format", &m_dateFormat, "locale|iso", "how the date is written");
    app->add_flag("--no-companion", m_noCompanion, "write no companion (.txt)");
    app->add_flag("--digest", m_digest, "write the image's SHA-256 beside it (.fcf.sha256)");
    app->add_flag("--force", m_force, "replace outputs that exist");
    app->add_flag("--strict", m_strict, "take warnings for errors");
}

void CreateCommand::run(Session* session)
{
    session->findings.setSubject(InputFile::labelOf(QFile::decodeName(m_binary.c_str())));
    const Build build = m_build.build(session);
    // What could not be taken would be found missing as well.
    const bool isWhole = !session->findings.hasErrors();
    InputFile binary;
    const std::optional<Outputs> outputs = plan(&binary, session);
    if (isWhole)
        Checker(session, binary.label(), build.origins).checkBuild(build);
    const FcfHeader composed =
        header(build, binary, outputs ? outputs->imageName() : QString(), session);
    if (m_strict)
        session->findings.promoteWarnings();
    if (session->findings.hasErrors() || !outputs)
        return;
    if (outputs->toStandardOutput())
        writeToStandardOutput(composed, &binary, session);
    else
        write(composed, &binary, *outputs, session);
}

std::optional<Outputs> CreateCommand::plan(InputFile* binary, Session* session) const
{
    const std::optional<QString> path = session->path(m_binary, QStringLiteral("BIN"));
    std::optional<QString> output;
    if (m_output) {
        output = session->path(*m_output, QStringLiteral("--output"));
        // As JSON it is refused, and that is what goes there.
        session->outIsTaken = output == StandardStream && !session->json;
    }
    if (!path || (m_output && !output) ||
        !binary->open(*path, Checker::LargestBinary, QStringLiteral("BIN"), session))
        return std::nullopt;
    checkBinary(binary, session);

    std::optional<Outputs> outputs = Outputs::of(*binary, output, session);
    if (outputs) {
        outputs->hasCompanion = !m_noCompanion;
        outputs->hasDigest = m_digest;
        outputs->guard(m_force, session);
    }
    return outputs;
}

void CreateCommand::checkBinary(InputFile* binary, Session* session) const
{
    Checker(session, binary->label()).checkBinarySize(binary->size());
    if (binary->size() == 0)
        return;
    const auto start = binary->bytesAt(0, PayloadKind::LookedAtBytes, session);
    const QString complaint = start ? PayloadKind::complaint(*start) : QString();
    if (!complaint.isEmpty())
        session->findings.warning(binary->label(), QStringLiteral("payload"), complaint);
}

FcfHeader CreateCommand::header(const Build& build, const InputFile& binary,
                                const QString& imageName, Session* session) const
{
    FcfHeader header;
    PelkFcfGeneratorFileInfo().measure(binary.size(), &header);
    build.describe(&header);
    header.fileName = imageName;

    Stamp stamp;
    if (m_dateTime)
        stamp.dateTime = session->text(*m_dateTime, QStringLiteral("--date-time"));
    if (m_dateFormat)
        stamp.dateFormat = session->text(*m_dateFormat, QStringLiteral("--date-format"));
    stamp.apply(&header, session);
    Checker(session, binary.label(), build.origins).checkTexts(header);
    return header;
}

void CreateCommand::write(const FcfHeader& header, InputFile* binary, const Outputs& outputs,
                          Session* session) const
{
    ImageWriter writer(header, session);
    FileError error;
    if (!stageAndPlace(&writer, binary, outputs, m_force, session, &error)) {
        refuseUnwritten(error, session);
        return;
    }
    session->print(outputs.image());
    session->result["image"] = outputs.image();
    if (outputs.hasCompanion) {
        session->print(outputs.companion());
        session->result["companion"] = outputs.companion();
    }
    if (outputs.hasDigest) {
        session->print(outputs.digest());
        session->result["digest"] = outputs.digest();
    }
    session->result["header"] = HeaderJson::of(header);
}

void CreateCommand::writeToStandardOutput(const FcfHeader& header, InputFile* binary,
                                          Session* session) const
{
    FileError error;
    error.path = StandardStream;
    if (!ImageWriter(header, session).write(*binary, session->environment().out, false, &error))
        refuseUnwritten(error, session);
}
