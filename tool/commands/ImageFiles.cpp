#include "tool/commands/ImageFiles.h"

#include "tool/base/Text.h"
#include "tool/check/Validator.h"
#include "tool/files/Digest.h"
#include "tool/files/InputFile.h"

namespace {

void ignore(const char* /*data*/, qint64 /*bytes*/) {}

} // namespace

Status ImageFiles::write(OutputFiles::Existing existing, QIODevice* out,
                         const CopyObserver& progress, QByteArray* digest) const
{
    OutputFiles files(existing);
    QString label = StandardOutputLabel;
    if (!outputs.toStandardOutput()) {
        const auto added = files.add(outputs.image);
        if (!added)
            return tl::unexpected<Finding>(added.error());
        out = *added;
        label = outputs.image;
    }
    Digest::Hash hash;
    const bool isDigested = hasDigest || digest;
    const auto observe = [&](const char* data, qint64 bytes) {
        if (isDigested)
            hash.add(data, bytes);
        progress(data, bytes);
    };
    Status status = writeAll(out, page, label);
    observe(page.constData(), page.size());
    if (status)
        status = copyPayload(payload, out, label,
                             isDigested ? PayloadCopy::Seen : PayloadCopy::Unseen, observe);
    if (status)
        status = Filler::write(out, fillerBytes, label, observe);
    const QByteArray taken = hash.result();
    if (digest)
        *digest = taken;
    if (status && !outputs.toStandardOutput() && hasCompanion)
        status = files.add(outputs.companion, page);
    if (status && !outputs.toStandardOutput() && hasDigest)
        status = files.add(outputs.digest, Digest::line(taken, outputs.image));
    return status && !outputs.toStandardOutput() ? files.place() : status;
}

std::optional<QByteArray> ImageFiles::digestIfThere() const
{
    Inputs inputs(nullptr, nullptr);
    const auto open = [&inputs](const QString& path) {
        return inputs.open(path, Validator::LargestFile, QString());
    };
    const auto has = [&open](const QString& path, const QByteArray& expected) {
        const auto file = open(path);
        return file && file->size() == expected.size() &&
               file->bytesAt(0, expected.size()) == expected;
    };
    const auto image = open(outputs.image);
    const qint64 bytes = page.size() + payload.bytes;
    if (!image || image->size() != bytes + fillerBytes || image->bytesAt(0, page.size()) != page ||
        (hasCompanion && !has(outputs.companion, page)))
        return std::nullopt;
    const auto filler = Filler::isIn({&*image, bytes, fillerBytes, nullptr});
    const auto difference =
        FileCompare::compare(payload, {&*image, page.size(), payload.bytes, nullptr}, &ignore);
    const auto digest = Digest::of({&*image, 0, image->size(), nullptr}, &ignore);
    if (!filler || !*filler || !difference || difference->count > 0 || !digest ||
        (hasDigest && !has(outputs.digest, Digest::line(*digest, outputs.image))))
        return std::nullopt;
    return *digest;
}
