#include "tool/commands/BesideFiles.h"

#include "tool/base/Text.h"
#include "tool/check/Validator.h"
#include "tool/commands/Command.h"
#include "tool/files/Copy.h"
#include "tool/files/Digest.h"

#include <QFileInfo>

namespace {

const QString Field = "digest";
const QString ImageEnding = ".fcf";

/// Adds the error that \p lines, of the file \p path, have no digest of \p image.
void refuseLines(const InputFile& image, const QByteArray& lines, const QString& path, Task* task)
{
    task->findings
        .error(ExitCode::NotValid, path, Field,
               QStringLiteral("holds no SHA-256 of \"%1\"").arg(shownText(image.label())))
        .at(0)
        .comparing("a line of sha256sum for that name",
                   QStringLiteral("none in %1 bytes").arg(lines.size()));
}

} // namespace

void BesideFiles::declareSkipping(CLI::App* app)
{
    Argument::addFlag(app, "--no-companion", &m_noCompanion,
                      "leave the companion beside the image alone");
    Argument::addFlag(app, "--no-digest", &m_noDigest, "leave the digest beside the image alone");
}

void BesideFiles::declareNaming(CLI::App* app)
{
    Argument::addOption(app, "--companion", &m_companion, "TXT",
                        "the companion that the header must be; without it, the one beside the "
                        "image is taken if there is one");
    Argument::addOption(app, "--digest", &m_digest, "FILE",
                        "the image's SHA-256; without it, FILE.sha256 is taken if there is one");
    Argument::addFlag(app, "--require-digest", &m_requireDigest,
                      "take an image without a digest for wrong");
    declareSkipping(app);
}

void BesideFiles::checkCompanion(const Validator& validator, const InputFile& file,
                                 const HeaderPage& page, Task* task) const
{
    std::optional<QString> path;
    if (m_companion)
        path = task->path(*m_companion, "--companion");
    else if (!m_noCompanion && file.path().endsWith(ImageEnding))
        path = file.path().chopped(ImageEnding.size()) + ".txt";
    if (!path || (!m_companion && !QFileInfo(*path).isFile()))
        return;
    if (const auto companion = task->open(*path, Validator::LargestFile, "--companion"))
        validator.compareCompanion(page, *companion);
}

std::optional<QString> BesideFiles::digestPath(const InputFile& image, Task* task) const
{
    if (m_digest)
        return task->path(*m_digest, "--digest");
    const QString path = Digest::pathFor(image.path());
    if (!m_noDigest && !image.isStandardInput() && QFileInfo(path).isFile())
        return path;
    if (m_requireDigest)
        task->findings.error(ExitCode::NotValid, image.label(), Field,
                             "is required, and there is none");
    return std::nullopt;
}

bool BesideFiles::checkDigest(const InputFile& image, const HeaderPage& page, Task* task) const
{
    const std::optional<QString> path = digestPath(image, task);
    const auto lines = path ? task->bytesOf(*path, Digest::MaximumBytes, "digest") : std::nullopt;
    if (!lines)
        return false;
    const bool hasName = !image.isStandardInput();
    QList<QByteArray> expected =
        Digest::find(*lines, hasName ? std::optional<QString>(image.path()) : std::nullopt);
    // A digest beside the image that was renamed along with it has the old name.
    const bool mayBeRenamed = hasName && !m_digest && expected.isEmpty();
    if (mayBeRenamed)
        expected = Digest::find(*lines, std::nullopt);
    // Without a name to look for, only a lone one can be meant.
    if (expected.isEmpty() || ((!hasName || mayBeRenamed) && expected.size() > 1)) {
        refuseLines(image, *lines, *path, task);
        return false;
    }
    const auto digestOf = [&](qint64 bytes) {
        return task->findings.valueOf(
            Digest::of({&image, 0, bytes, nullptr}, task->progress("verify", image.size())));
    };
    auto found = digestOf(image.size());
    if (found && page.fillerBytes > 0 && !expected.contains(*found))
        found = digestOf(page.imageBytes());
    if (!found)
        return false;
    if (mayBeRenamed && *found == expected.first())
        task->findings.note(*path, Field, "is of a file with another name");
    else if (mayBeRenamed)
        refuseLines(image, *lines, *path, task);
    for (const QByteArray& digest : mayBeRenamed ? QList<QByteArray>() : expected) {
        if (*found != digest)
            task->findings
                .error(ExitCode::NotValid, image.label(), Field,
                       QStringLiteral("is not that of %1").arg(shownText(*path)))
                .at(0)
                .comparing(QString::fromLatin1(digest.toHex()),
                           QString::fromLatin1(found->toHex()));
    }
    return true;
}
