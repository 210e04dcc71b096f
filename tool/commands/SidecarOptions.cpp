#include "tool/commands/SidecarOptions.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/ImagePaths.h"
#include "tool/commands/Task.h"
#include "tool/files/Digest.h"
#include "tool/files/FolderLock.h"

#include <QFileInfo>

namespace {

const QLatin1String Field("digest");

/// Adds the error that the list \p path has no digest of \p image.
void addNoDigest(const InputFile& image, const QString& path, const DigestList& list, Task* task)
{
    task->findings
        .error(ExitCode::NotValid, path, Field,
               QStringLiteral("holds no SHA-256 of \"%1\"").arg(shownText(image.label())))
        .at(0)
        .comparing("a line of sha256sum for that file",
                   QStringLiteral("none in %1 lines").arg(list.entries().size()));
}

/// Adds the error that the list \p path has several digests, of which none is of \p image.
void addAmbiguous(const InputFile& image, const QString& path, qint64 count, Task* task)
{
    task->findings
        .error(ExitCode::NotValid, path, Field,
               QStringLiteral("holds several SHA-256 that may be of \"%1\"")
                   .arg(shownText(image.label())))
        .at(0)
        .comparing("one, or one with its path", QString::number(count));
}

/// The sizes in bytes of the parts of \p image that a digest may be of: all of it, or without the
/// filler behind it, or with a part of that which fills a page or a block.
QVector<qint64> digestedSizes(const InputFile& image, const HeaderPage& page)
{
    QVector<qint64> sizes{image.size()};
    if (page.fillerBytes == 0)
        return sizes;

    const qint64 blockBytes = qint64(FcfLayout::PageBytes) * FcfLayout::BlockPages;
    for (const qint64 unit : {qint64(1), qint64(FcfLayout::PageBytes), blockBytes}) {
        const qint64 size = (page.imageBytes() + unit - 1) / unit * unit;
        if (size < image.size() && !sizes.contains(size))
            sizes << size;
    }
    return sizes;
}

/// The first digest of \p image that is one of \p expected, else that of all of it.
std::optional<QByteArray> digestOf(const InputFile& image, const HeaderPage& page,
                                   const QList<QByteArray>& expected, Task* task)
{
    std::optional<QByteArray> whole;
    for (const qint64 bytes : digestedSizes(image, page)) {
        const Region region{&image, 0, bytes, nullptr};
        auto digest = task->findings.valueOf(Digest::of(region, task->progress("verify", bytes)));
        if (!digest || expected.contains(*digest))
            return digest;
        if (!whole)
            whole = digest;
    }
    return whole;
}

QList<QByteArray> digestsOf(const QList<DigestList::Entry>& entries)
{
    QList<QByteArray> digests;
    for (const DigestList::Entry& entry : entries)
        digests << entry.digest;
    return digests;
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
    Arguments::addOption(
        app, "--digest", &m_digest, "FILE",
        "a list of SHA-256 as sha256sum writes it; without it, FILE.sha256 is taken if "
        "there is one");
    Arguments::addFlag(app, "--require-digest", &m_requireDigest,
                       "take an image without a digest for wrong");
    declareSkipping(app);
}

void SidecarOptions::skipUnnamed()
{
    m_noCompanion = true;
    m_noDigest = true;
}

std::optional<QString> SidecarOptions::companionPath(const InputFile& file, Task* task) const
{
    if (m_companion)
        return task->path(*m_companion, "--companion");
    if (m_noCompanion)
        return std::nullopt;

    std::optional<QString> path = ImagePaths::companionOf(file.path());
    if (!path || !QFileInfo(*path).isFile())
        return std::nullopt;
    return path;
}

std::optional<SidecarOptions::Set> SidecarOptions::open(const QString& path, bool isImage,
                                                        Task* task) const
{
    const FolderLock lock(path);
    auto file = task->open(path, FcfFileChecker::LargestFile, "FILE");
    if (!file)
        return std::nullopt;

    Set set{std::move(*file), std::nullopt, std::nullopt};
    set.file.allowReplacing();
    if (const auto companion = companionPath(set.file, task))
        set.companion = task->open(*companion, FcfFileChecker::LargestFile, "--companion");

    const bool isListRead = m_digest && m_list;
    if (!isImage || isListRead)
        return set;
    if (const auto digest = digestPath(set.file, task))
        set.digest = task->open(*digest, DigestList::MaximumBytes, Field.data());
    return set;
}

void SidecarOptions::checkCompanion(const FcfFileChecker& checker, const HeaderPage& page,
                                    const std::optional<InputFile>& companion)
{
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

/// The list in \p digest. One that was named is read once, for all images.
std::optional<DigestList> SidecarOptions::list(const std::optional<InputFile>& digest, Task* task)
{
    if (m_digest && m_list)
        return m_list;
    if (!digest)
        return std::nullopt;

    if (digest->size() > DigestList::MaximumBytes) {
        task->findings.refuse(
            digest->label(), Field,
            QStringLiteral("has more than %1 bytes").arg(DigestList::MaximumBytes));
        return std::nullopt;
    }
    const auto lines = task->findings.valueOf(digest->bytesAt(0, digest->size()));
    if (!lines)
        return std::nullopt;

    m_listPath = digest->path();
    m_list = DigestList(*lines, QFileInfo(m_listPath).path());
    return m_list;
}

/// The entries of \p list, the file \p path, that \p image must agree with. If none can be meant,
/// that is an error.
std::optional<QList<DigestList::Entry>> SidecarOptions::expectedEntries(const InputFile& image,
                                                                        const QString& path,
                                                                        const DigestList& list,
                                                                        Task* task) const
{
    const QList<DigestList::Entry> ofFile =
        image.isStandardInput() ? QList<DigestList::Entry>() : list.entriesOfFile(image.path());
    if (!ofFile.isEmpty())
        return ofFile;

    const QList<DigestList::Entry> ofName = list.entriesOfName(image.path());
    if (ofName.size() == 1)
        return ofName;
    if (ofName.size() > 1) {
        addAmbiguous(image, path, ofName.size(), task);
        return std::nullopt;
    }

    // The only digest in a list is meant even if the image was renamed or has no name: a digest
    // beside the image, or one of a release, against which a read-back is checked.
    if (list.entries().size() != 1 || m_imageCount != 1) {
        addNoDigest(image, path, list, task);
        return std::nullopt;
    }
    if (!image.isStandardInput())
        task->findings.note(path, Field, "is of a file with another name");
    return list.entries();
}

bool SidecarOptions::checkDigest(const FcfFile& image, const std::optional<InputFile>& digest,
                                 Task* task)
{
    const InputFile& file = image.file;
    const auto list = this->list(digest, task);
    if (!list)
        return false;

    const auto entries = expectedEntries(file, m_listPath, *list, task);
    if (!entries)
        return false;

    const QList<QByteArray> expected = digestsOf(*entries);
    const auto found = digestOf(file, image.page, expected, task);
    if (!found)
        return false;

    for (const QByteArray& sha256 : expected) {
        if (*found != sha256)
            task->findings
                .error(ExitCode::NotValid, file.label(), Field,
                       QStringLiteral("is not that of %1").arg(shownText(m_listPath)))
                .at(0)
                .comparing(QString::fromLatin1(sha256.toHex()),
                           QString::fromLatin1(found->toHex()));
    }
    return true;
}

bool SidecarOptions::checkImage(const FcfFile& image, const Set& set, Task* task)
{
    const int findingsBefore = task->findings.count();
    const auto& [file, page] = image;
    const FcfFileChecker checker(&file, FcfFileChecker::Image, task->codec, &task->findings);
    checker.check(page);
    checkCompanion(checker, page, set.companion);
    checkDigest(image, set.digest, task);

    const bool isValid = task->findings.exitCode(findingsBefore) == ExitCode::Done;
    task->findings.dropNotes();
    return isValid;
}
