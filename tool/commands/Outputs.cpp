#include "tool/commands/Outputs.h"

#include "tool/base/Text.h"
#include "tool/check/Findings.h"
#include "tool/console/Console.h"
#include "tool/console/Report.h"
#include "tool/files/Digest.h"
#include "tool/files/InputFile.h"

#include <QFileInfo>

namespace {

const QString BinaryEnding = QStringLiteral(".bin");
const QString ContainerEnding = QStringLiteral(".bit");
const QString ImageEnding = QStringLiteral(".fcf");
const QString CompanionEnding = QStringLiteral(".txt");
const QString OutputOption = QStringLiteral("--output");

QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }

/// \p path with every ".bin" of its last name replaced; those of folders stay.
QString renamed(const QString& path, const QString& ending)
{
    const QString name = nameOf(path);
    return path.left(path.size() - name.size()) + QString(name).replace(BinaryEnding, ending);
}

/// What a link such as /dev/stdout leads to is not replaced in place of the link.
bool leadsToStream(const QString& path)
{
    const FileSystem::Kind target = FileSystem::targetKindOf(path);
    return target == FileSystem::Kind::Device || target == FileSystem::Kind::Stream;
}

} // namespace

OutputGuard::OutputGuard(const Inputs* inputs, bool force, Findings* findings)
    : m_inputs(inputs), m_force(force), m_findings(findings)
{
}

void OutputGuard::guard(const QString& path) const
{
    if (const ReadFile* const input = m_inputs->find(FileSystem::identityOf(path))) {
        refuse(ExitCode::Refused, path, isInput(*input));
        return;
    }
    switch (FileSystem::kindOf(path)) {
    case FileSystem::Kind::Nothing:
        m_findings->accept(FileSystem::checkPlaceOf(path));
        return;
    case FileSystem::Kind::File:
    case FileSystem::Kind::Link:
        if (leadsToStream(path))
            refuse(ExitCode::Refused, path, QStringLiteral("is not a file"));
        else if (!m_force)
            m_findings->add(FileSystem::alreadyExists(path).value());
        return;
    case FileSystem::Kind::Folder:
        refuse(ExitCode::Refused, path, QStringLiteral("is a folder"));
        return;
    case FileSystem::Kind::Device:
    case FileSystem::Kind::Stream:
        refuse(ExitCode::Refused, path, QStringLiteral("is not a file"));
        return;
    }
}

void OutputGuard::guardStandardOutput(const Environment& environment, bool getsBinary) const
{
    if (const ReadFile* const input = m_inputs->behind(environment.out))
        refuse(ExitCode::Refused, StandardOutputLabel, isInput(*input));
    if (getsBinary && environment.outIsTerminal)
        refuse(
            ExitCode::Refused, StandardOutputLabel,
            QStringLiteral("is a terminal, and gets no binary data: redirect it or name a file"));
}

void OutputGuard::guardUnwritten(const QString& path, const char* option) const
{
    if (const ReadFile* const input = m_inputs->find(FileSystem::identityOf(path)))
        refuse(ExitCode::Refused, path, isInput(*input));
    else if (FileSystem::exists(path))
        m_findings->warning(path, QLatin1String(option),
                            QStringLiteral("exists, is not written, and so will not belong to the "
                                           "new image"));
}

void OutputGuard::refuse(ExitCode exitCode, const QString& path, const QString& reason) const
{
    m_findings->error(exitCode, path, OutputOption, reason);
}

Result<Outputs> Outputs::of(const InputFile& binary, const std::optional<QString>& output)
{
    const bool isContainer = binary.path().endsWith(ContainerEnding);
    const bool named =
        !binary.isStandardInput() && (binary.path().endsWith(BinaryEnding) || isContainer);
    const QString path =
        isContainer ? binary.path().chopped(ContainerEnding.size()) + BinaryEnding : binary.path();
    const bool toStandardOutput = output == StandardStream;
    Outputs outputs;
    if (output && !toStandardOutput) {
        if (!output->endsWith(ImageEnding))
            return failure(ExitCode::Refused, *output, OutputOption,
                           QStringLiteral("the name of an image ends with .fcf"));
        outputs.image = *output;
        outputs.companion = output->chopped(ImageEnding.size()) + CompanionEnding;
    } else if (named) {
        outputs.image = renamed(path, ImageEnding);
        outputs.companion = renamed(path, CompanionEnding);
    } else {
        return failure(ExitCode::Refused, binary.label(), OutputOption,
                       output ? QStringLiteral("gives no name for the header: only a BIN whose "
                                               "name ends with .bin does")
                              : QStringLiteral("is missing: only a name that ends with .bin gives "
                                               "the image's name"));
    }
    outputs.digest = Digest::pathFor(outputs.image);
    outputs.imageName = nameOf(outputs.image);
    if (toStandardOutput)
        outputs.image = StandardStream;
    return outputs;
}

bool Outputs::toStandardOutput() const { return image == StandardStream; }
