#include "tool/commands/SidecarOptions.h"

#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Task.h"
#include "tool/files/Digest.h"

#include <QFileInfo>

namespace {

const QString Field = "digest";
const QString ImageEnding = ".fcf";
const QString CompanionEnding = ".txt";

/// Adds the error that \p lines, of the file \p path, have no digest of \p image.
void addNoDigest(const InputFile& image, const QByteArray& lines, const QString& path, Task* task)
{
    task->findings
        .error(ExitCode::NotValid, path, Field,
               QStringLiteral("holds no SHA-256 of \"%1\"").arg(shownText(image.label())))
        .at(0)
        .comparing("a line of sha256sum for that name",
                   QStringLiteral("none in %1 bytes").arg(lines.size()));
}

/// The digest of \p image, or if that is none of \p expected, of what is before its filler.
std::optional<QByteArray> digestOf(const InputFile& image, const HeaderPage& page,
                                   const QList<QByteArray>& expected, Task* task)
{
    const auto digestOfFirst = [&](qint64 bytes) {
        const Region region{&image, 0, bytes, nullptr};
        return task->findings.valueOf(Digest::of(region, task->progress("verify", image.size())));
    };

    const auto whole = digestOfFirst(image.size());
    if (!whole || page.fillerBytes == 0 || expected.contains(*whole))
        return whole;

    return digestOfFirst(page.imageBytes());
}

} // namespace

void SidecarOptions::declareSkipping(CLI::App* app)
{
    Arguments::addFlag(app, "--no-companion", &m_noCompanion,
                       "leave the companion beside the image alone");
    Arguments::addFlag(app, "--no-digest", &m_noDigest, "leave the digest beside the image alone");
}

void SidecarOptions::declareNaming(CLI::App* app)
{
    Arguments::addOption(app, "--companion", &m_companion, "TXT",
                         "the companion that the header must be; without it, the one beside the "
                         "image is taken if there is one");
    Arguments::addOption(app, "--digest", &m_digest, "FILE",
                         "the image's SHA-256; without it, FILE.sha256 is taken if there is one");
    Arguments::addFlag(app, "--require-digest", &m_requireDigest,
                       "take an image without a digest for wrong");
    declareSkipping(app);
}

std::optional<QString> SidecarOptions::companionPath(const InputFile& file, Task* task) const
{
    if (m_companion)
        return task->path(*m_companion, "--companion");
    if (m_noCompanion || !file.path().endsWith(ImageEnding))
        return std::nullopt;

    const QString path = file.path().chopped(ImageEnding.size()) + CompanionEnding;
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    return path;
}

void SidecarOptions::checkCompanion(const FcfFileChecker& checker, const InputFile& file,
                                    const HeaderPage& page, Task* task) const
{
    const std::optional<QString> path = companionPath(file, task);
    if (!path)
        return;

    const auto companion = task->open(*path, FcfFileChecker::LargestFile, "--companion");
    if (companion)
        checker.compareCompanion(page, *companion);
}

std::optional<QString> SidecarOptions::digestPath(const InputFile& image, Task* task) const
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

bool SidecarOptions::checkDigest(const InputFile& image, const HeaderPage& page, Task* task) const
{
    const std::optional<QString> path = digestPath(image, task);
    const auto lines = path ? task->bytesOf(*path, Digest::MaximumBytes, "digest") : std::nullopt;
    if (!lines)
        return false;

    const auto name = image.isStandardInput() ? std::nullopt : std::optional<QString>(image.path());
    const QList<QByteArray> expected = Digest::find(*lines, name);
    if (name && !m_digest && expected.isEmpty())
        return checkRenamed(image, page, *lines, *path, task);

    // Without a name to search for, only a digest that is alone can be meant.
    if (expected.isEmpty() || (!name && expected.size() > 1)) {
        addNoDigest(image, *lines, *path, task);
        return false;
    }

    const auto found = digestOf(image, page, expected, task);
    if (!found)
        return false;

    for (const QByteArray& digest : expected) {
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

/// Checks \p image against a digest beside it that was renamed along with it, and so has the old
/// name in it.
bool SidecarOptions::checkRenamed(const InputFile& image, const HeaderPage& page,
                                  const QByteArray& lines, const QString& path, Task* task)
{
    const QList<QByteArray> expected = Digest::find(lines, std::nullopt);
    if (expected.size() != 1) {
        addNoDigest(image, lines, path, task);
        return false;
    }

    const auto found = digestOf(image, page, expected, task);
    if (!found)
        return false;

    if (*found == expected.first())
        task->findings.note(path, Field, "is of a file with another name");
    else
        addNoDigest(image, lines, path, task);
    return true;
}
