#include "tool/commands/ImageWriter.h"

#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/files/Copy.h"
#include "tool/files/Digest.h"
#include "tool/files/DigestList.h"
#include "tool/files/FileCompare.h"
#include "tool/files/Filler.h"
#include "tool/files/InputOpener.h"

#include <QFileInfo>

namespace {

void ignoreProgress(const char* /*data*/, qint64 /*bytes*/) {}

Result<InputFile> openOld(const QString& path)
{
    return InputOpener(nullptr, nullptr).open(path, FcfFileChecker::LargestFile, QString());
}

/// Whether the file at \p path has exactly the bytes \p expected.
bool isSameFile(const QString& path, const QByteArray& expected)
{
    const auto file = openOld(path);
    if (!file || file->size() != expected.size())
        return false;

    return file->bytesAt(0, expected.size()) == expected;
}

} // namespace

Result<QByteArray> ImageWriter::write(OutputTransaction::Existing existing, QIODevice* out,
                                      const CopyObserver& observe, bool isHashed) const
{
    if (paths.toStandardOutput())
        return writeImage(out, StandardOutputLabel, observe, isHashed);

    OutputTransaction files(existing);
    const auto image = files.add(paths.image);
    if (!image)
        return tl::unexpected<Finding>(image.error());

    auto digest = writeImage(*image, paths.image, observe, isHashed || hasDigest);
    if (!digest)
        return digest;

    const Status finished = addSidecars(*digest, &files).and_then([&] { return files.commit(); });
    if (!finished)
        return tl::unexpected<Finding>(finished.error());
    return digest;
}

Result<QByteArray> ImageWriter::writeImage(QIODevice* output, const QString& label,
                                           const CopyObserver& observe, bool isHashed) const
{
    Digest::Hash hash;
    const auto observeAll = [&](const char* data, qint64 bytes) {
        if (isHashed)
            hash.add(data, bytes);
        observe(data, bytes);
    };

    if (const Status status = writeOutput(output, page, label); !status)
        return tl::unexpected<Finding>(status.error());
    observeAll(page.constData(), page.size());

    const auto use = isHashed ? PayloadCopy::Seen : PayloadCopy::Unseen;
    if (const Status status = copyPayload(payload, output, label, use, observeAll); !status)
        return tl::unexpected<Finding>(status.error());

    if (const Status status = Filler::write(output, fillerBytes, label, observeAll); !status)
        return tl::unexpected<Finding>(status.error());

    return isHashed ? hash.result() : QByteArray();
}

Status ImageWriter::addSidecars(const QByteArray& digest, OutputTransaction* files) const
{
    if (hasCompanion) {
        if (Status status = files->add(paths.companion, page); !status)
            return status;
    }
    if (hasDigest) {
        if (Status status = files->add(paths.digest, Digest::line(digest, paths.image)); !status)
            return status;
    }
    return {};
}

Status ImageWriter::writeSidecars(const Old& old) const
{
    if (!hasCompanion && !hasDigest)
        return {};

    OutputTransaction files(OutputTransaction::Replace);
    files.setCondition([this, &old]() -> Status {
        if (FileSystem::identityOf(paths.image) ==
            FileSystem::identityOf(old.file.device()->handle()))
            return {};
        return FileSystem::notWritten(paths.image, "another run has replaced it meanwhile");
    });
    return addSidecars(old.digest, &files).and_then([&] { return files.commit(); });
}

std::optional<ImageWriter::Old> ImageWriter::findUnchanged() const
{
    auto image = openOld(paths.image);
    if (!image || !isSameImage(*image))
        return std::nullopt;

    const auto digest = Digest::of({&*image, 0, image->size(), nullptr}, &ignoreProgress);
    if (!digest)
        return std::nullopt;
    return Old{*digest, std::move(*image)};
}

bool ImageWriter::isCompanionRight() const { return isSameFile(paths.companion, page); }

bool ImageWriter::isDigestRight(const QByteArray& digest) const
{
    const auto file = openOld(paths.digest);
    if (!file || file->size() > DigestList::MaximumBytes)
        return false;

    const auto lines = file->bytesAt(0, file->size());
    if (!lines || !DigestList::isDigest(*lines))
        return false;

    const auto entries =
        DigestList(*lines, QFileInfo(paths.digest).path()).entriesOfName(paths.image);
    return entries.size() == 1 && entries.first().digest == digest;
}

/// Whether the open \p image has the page, the payload and the filler that would be written. What
/// can be compared at the least cost comes first.
bool ImageWriter::isSameImage(const InputFile& image) const
{
    const qint64 imageBytes = page.size() + payload.bytes;
    if (image.size() != imageBytes + fillerBytes)
        return false;
    if (image.bytesAt(0, page.size()) != page)
        return false;

    const auto hasFiller = Filler::isIn({&image, imageBytes, fillerBytes, nullptr});
    if (!hasFiller || !*hasFiller)
        return false;

    const Region old{&image, page.size(), payload.bytes, nullptr};
    const auto difference = FileCompare::compare(payload, old, &ignoreProgress);
    return difference && difference->count == 0;
}
