#include "tool/commands/DepFileOptions.h"

#include "tool/commands/Arguments.h"
#include "tool/commands/ImagePaths.h"
#include "tool/commands/OutputChecks.h"
#include "tool/commands/Task.h"
#include "tool/files/DepFile.h"
#include "tool/files/OutputTransaction.h"

#include <QFileInfo>

namespace {

constexpr char DepFileOption[] = "--depfile";
constexpr char TargetOption[] = "--depfile-target";

bool isSamePath(const QString& one, const QString& other)
{
    return QFileInfo(one).absoluteFilePath() == QFileInfo(other).absoluteFilePath();
}

} // namespace

void DepFileOptions::declare(CLI::App* app)
{
    Arguments::addOption(app, DepFileOption, &m_file, "FILE",
                         "list all that was read in this file, for make and ninja (default: none)");
    Arguments::addOption(app, TargetOption, &m_target, "TARGET",
                         "what depends on that (default: the image)");
    Arguments::setNeeded(app, TargetOption, DepFileOption);
}

void DepFileOptions::check(const ImagePaths& image, Task* task)
{
    if (!m_file)
        return;

    m_path = task->path(*m_file, DepFileOption);
    m_targetName = m_target ? task->text(*m_target, TargetOption) : image.image;
    if (!m_path)
        return;

    if (image.toStandardOutput()) {
        task->refuse(DepFileOption, "needs an image in a file");
        return;
    }
    for (const QString& path : {image.image, image.companion, image.digest}) {
        if (isSamePath(*m_path, path)) {
            task->findings.refuse(*m_path, DepFileOption,
                                  "is the name of the image or is kept for what "
                                  "is beside it");
            return;
        }
    }
    OutputChecks::checkFile(*m_path, {true, std::nullopt}, task);
}

void DepFileOptions::write(const ImagePaths& image, Task* task) const
{
    if (!m_path)
        return;

    // An image that is made like itself does not depend on itself.
    QStringList inputs;
    const auto own = FileSystem::identityOf(image.image);
    for (const QString& path : task->inputs.paths()) {
        if (!inputs.contains(path) && FileSystem::identityOf(path) != own)
            inputs << path;
    }

    const auto rule = task->findings.valueOf(DepFile::rule(*m_targetName, inputs));
    if (!rule)
        return;

    OutputTransaction files(OutputTransaction::Replace);
    task->findings.accept(files.add(*m_path, *rule).and_then([&] { return files.commit(); }));
}
