#include "tool/files/Region.h"

#include "tool/files/InputFile.h"

const QString PayloadField = "payload";

namespace {

tl::unexpected<Finding> aboutPayload(Finding error)
{
    error.field = PayloadField;
    return tl::unexpected<Finding>(error);
}

} // namespace

Result<QByteArray> Region::bytesAt(qint64 position, qint64 count) const
{
    auto taken = file->bytesAt(offset + position, qMin(count, bytes - position));
    if (taken && transform)
        transform(taken->data(), taken->size());

    return taken;
}

Status readParts(const Region& region, const PartReader& read)
{
    qint64 done = 0;
    while (done < region.bytes) {
        const qint64 wanted = qMin<qint64>(ChunkBytes, region.bytes - done);
        auto part = region.file->bytesAt(region.offset + done, wanted);
        if (!part)
            return aboutPayload(part.error());

        done += part->size();
        if (part->size() < wanted)
            return region.file->notRead(
                QStringLiteral("the payload ends after %1 of %2 bytes").arg(done).arg(region.bytes),
                PayloadField);

        if (region.transform)
            region.transform(part->data(), part->size());

        if (Status status = read(part->constData(), part->size()); !status)
            return status;
    }
    return {};
}

Status readAll(const Region& region, const CopyObserver& observe)
{
    return readParts(region, [&observe](const char* data, qint64 count) {
        observe(data, count);
        return Status();
    });
}
