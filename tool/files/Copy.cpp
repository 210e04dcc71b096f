#include "tool/files/Copy.h"

#include "fcf/FcfDevice.h"
#include "tool/files/InputFile.h"

namespace {

/// Copies by way of this process's memory, where the bytes can be changed.
Status copyThroughMemory(const Region& region, QIODevice* output, const QString& label,
                         const CopyObserver& observe)
{
    return readParts(region, [&](const char* data, qint64 count) {
        const QByteArray part = QByteArray::fromRawData(data, static_cast<int>(count));
        Status written = writeOutput(output, part, label);
        if (written)
            observe(data, count);

        return written;
    });
}

/// Copies up to the end of the file, which the kernel can do without this process.
Status copyToEnd(const Region& region, QIODevice* output, const QString& label,
                 PayloadCopy::Bytes use, const CopyObserver& observe)
{
    QFile* const payload = region.file->device();
    if (!payload->seek(region.offset))
        return region.file->notRead(payload->errorString(), PayloadField);

    PayloadCopy copy(payload, region.bytes, output);
    if (copy.run(use, observe))
        return {};
    if (copy.isPayloadAtFault())
        return region.file->notRead(copy.error(), PayloadField);
    return FileSystem::notWritten(label, copy.error());
}

} // namespace

FileSystem::OrReason<void> writeBytes(QIODevice* device, const QByteArray& bytes)
{
    QString error;
    if (FcfDevice::writeAll(device, bytes, &error))
        return {};
    return tl::make_unexpected(error);
}

Status writeOutput(QIODevice* output, const QByteArray& bytes, const QString& label)
{
    const auto written = writeBytes(output, bytes);
    if (written)
        return {};
    return FileSystem::notWritten(label, written.error());
}

Status copyPayload(const Region& region, QIODevice* output, const QString& label,
                   PayloadCopy::Bytes use, const CopyObserver& observe)
{
    const bool endsWithFile =
        !region.file->isPart() && region.offset + region.bytes >= region.file->size();
    Status copied = region.transform || !endsWithFile
                        ? copyThroughMemory(region, output, label, observe)
                        : copyToEnd(region, output, label, use, observe);
    if (!copied)
        return copied;

    return region.file->checkUnchanged();
}
