#include "Outputs.h"

#include "tool/Digest.h"
#include "tool/FileSystem.h"
#include "tool/InputFile.h"
#include "tool/KilledRun.h"
#include "tool/PartialFile.h"
#include "tool/Session.h"
#include "tool/StagedFiles.h"

#include <QFileInfo>

namespace {

const QString BinaryEnding = QStringLiteral(".bin");
const QString ImageEnding = QStringLiteral(".fcf");
const QString CompanionEnding = QStringLiteral(".txt");
const QString OutputOption = QStringLiteral("--output");
const QString Exists = QStringLiteral("exists already; --force replaces it");

QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }

/// \p path with every ".bin" of its last name replaced; those of folders stay.
QString renamed(const QString& path, const QString& ending)
{
    const QString name = nameOf(path);
    return path.left(path.size() - name.size()) + QString(name).replace(BinaryEnding, ending);
}

std::optional<Outputs> refuse(const QString& file, const QString& reason, Session* session)
{
    session->findings.error(ExitCode::Refused, file, OutputOption, reason);
    return std::nullopt;
}

/// What a link such as /dev/stdout leads to is not replaced in place of the link.
bool leadsToStream(const QString& path)
{
    const FileSystem::Kind target = FileSystem::targetKindOf(path);
    return target == FileSystem::Kind::Device || target == FileSystem::Kind::Stream;
}

/// Refuses \p path if an input stands at any of \p names. Returns whether none does.
bool keepInputs(const QStringList& names, const QString& path, Session* session)
{
    for (const QString& name : names) {
        if (const ReadFile* const input = session->inputWith(FileSystem::identityOf(name))) {
            session->findings.error(ExitCode::Refused, path, OutputOption, isInput(*input));
            return false;
        }
    }
    return true;
}

} // namespace

void guardOutput(const QString& path, bool force, Session* session)
{
    Findings& findings = session->findings;
    if (!keepInputs(PartialFile::namesFor(path) << path, path, session))
        return;
    switch (FileSystem::kindOf(path)) {
    case FileSystem::Kind::Nothing: {
        FileError error;
        if (!error.take(FileSystem::findPlaceOf(path), path))
            refuseUnwritten(error, session);
        return;
    }
    case FileSystem::Kind::File:
    case FileSystem::Kind::Link:
        if (leadsToStream(path))
            findings.error(ExitCode::Refused, path, OutputOption, QStringLiteral("is not a file"));
        else if (!force)
            findings.error(ExitCode::OutputExists, path, OutputOption, Exists);
        return;
    case FileSystem::Kind::Folder:
        findings.error(ExitCode::Refused, path, OutputOption, QStringLiteral("is a folder"));
        return;
    case FileSystem::Kind::Device:
    case FileSystem::Kind::Stream:
        findings.error(ExitCode::Refused, path, OutputOption, QStringLiteral("is not a file"));
        return;
    }
}

void guardStandardOutput(Session* session)
{
    if (const ReadFile* const input = session->inputAtOut())
        session->findings.error(ExitCode::Refused, StandardOutputLabel, OutputOption,
                                isInput(*input));
}

void refuseUnwritten(const FileError& error, Session* session)
{
    if (error.isInput) {
        session->findings.error(ExitCode::CannotAccess, error.path, QStringLiteral("payload"),
                                QStringLiteral("cannot be read: %1").arg(error.reason));
        return;
    }
    if (error.exists) {
        session->findings.error(ExitCode::OutputExists, error.path, OutputOption, Exists);
        return;
    }
    session->findings.error(
        ExitCode::CannotAccess, error.path == StandardStream ? StandardOutputLabel : error.path,
        OutputOption, QStringLiteral("cannot be written: %1").arg(error.reason));
}

void warnOfLeftBehind(const StagedFiles& files, Session* session)
{
    for (const QString& path : files.leftBehind())
        session->findings.warning(
            path, OutputOption,
            QStringLiteral("is left of what was on the way, and could not be removed"));
}

std::optional<Outputs> Outputs::of(const InputFile& binary, const std::optional<QString>& output,
                                   Session* session)
{
    const bool named = !binary.isStandardInput() && binary.path().endsWith(BinaryEnding);
    Outputs outputs;
    if (output && *output != StandardStream) {
        if (!output->endsWith(ImageEnding))
            return refuse(*output, QStringLiteral("the name of an image ends with .fcf"), session);
        outputs.m_image = *output;
        outputs.m_companion = output->chopped(ImageEnding.size()) + CompanionEnding;
        return outputs;
    }
    if (!named)
        return refuse(binary.label(),
                      output ? QStringLiteral("gives no name for the header: only a BIN whose name "
                                              "ends with .bin does")
                             : QStringLiteral("is missing: only a name that ends with .bin gives "
                                              "the image's name"),
                      session);
    outputs.m_image = renamed(binary.path(), ImageEnding);
    outputs.m_companion = renamed(binary.path(), CompanionEnding);
    if (output) {
        outputs.m_nameForStream = nameOf(outputs.m_image);
        outputs.m_image = StandardStream;
    }
    return outputs;
}

bool Outputs::toStandardOutput() const { return m_image == StandardStream; }

QString Outputs::imageName() const
{
    return toStandardOutput() ? m_nameForStream : nameOf(m_image);
}

QString Outputs::digest() const { return Digest::pathFor(m_image); }

void Outputs::guard(bool force, Session* session)
{
    guardStandardOutput(session);
    if (toStandardOutput()) {
        if (hasCompanion)
            refuse(StandardOutputLabel,
                   QStringLiteral("takes the image alone: give --no-companion as well"), session);
        if (hasDigest || session->json)
            refuse(StandardOutputLabel,
                   QStringLiteral("takes the image alone: --digest and --json need a file"),
                   session);
        return;
    }
    guardOutput(m_image, force, session);
    const struct {
        bool written;
        QString path;
        const char* option;
    } others[] = {{hasCompanion, m_companion, "--no-companion"}, {hasDigest, digest(), "--digest"}};
    for (const auto& other : others) {
        const bool isLeftover = !FileSystem::exists(m_image) &&
                                KilledRun(m_image, m_companion).placedWhereNothingWas(other.path);
        QStringList names = PartialFile::namesFor(other.path);
        if (isLeftover)
            names << other.path;
        if (!keepInputs(names, other.path, session))
            continue;
        if (other.written && !isLeftover)
            guardOutput(other.path, force, session);
        else if (!other.written && !isLeftover)
            warnOfStale(other.path, other.option, session);
    }
}

void Outputs::warnOfStale(const QString& path, const char* option, Session* session) const
{
    if (FileSystem::exists(path))
        session->findings.warning(path, QLatin1String(option),
                                  QStringLiteral("exists, is not written, and so will not belong "
                                                 "to the new image"));
}
