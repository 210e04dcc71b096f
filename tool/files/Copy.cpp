#include "tool/files/Copy.h"

#include "fcf/FcfWriter.h"
#include "tool/files/InputFile.h"

#include <algorithm>

namespace {

constexpr int ChunkBytes = 1024 * 1024;
const QString Payload = QStringLiteral("payload");

tl::unexpected<Finding> unreadable(Finding error)
{
    error.field = Payload;
    return tl::unexpected<Finding>(error);
}

/// Calls \p take for each part, until it returns an error.
template <class Take>
Status readParts(const Region& region, Take take)
{
    for (qint64 done = 0; done < region.bytes;) {
        const qint64 wanted = qMin<qint64>(ChunkBytes, region.bytes - done);
        auto part = region.file->bytesAt(region.offset + done, wanted);
        if (!part)
            return unreadable(part.error());
        done += part->size();
        if (part->size() < wanted)
            return region.file->notRead(
                QStringLiteral("the payload ends after %1 of %2 bytes").arg(done).arg(region.bytes),
                Payload);
        if (region.transform)
            region.transform(part->data(), part->size());
        if (Status status = take(part->constData(), part->size()); !status)
            return status;
    }
    return {};
}

} // namespace

QString writeAll(QIODevice* device, const char* data, qint64 bytes)
{
    QString error;
    FcfWriter::writeAll(device, QByteArray::fromRawData(data, static_cast<int>(bytes)), &error);
    return error;
}

Status writeAll(QIODevice* sink, const QByteArray& bytes, const QString& label)
{
    const QString error = writeAll(sink, bytes.constData(), bytes.size());
    return error.isEmpty() ? Status() : FileSystem::notWritten(label, error);
}

Result<QByteArray> Region::start(qint64 count) const
{
    auto taken = file->bytesAt(offset, qMin(count, bytes));
    if (taken && transform)
        transform(taken->data(), taken->size());
    return taken;
}

Status readAll(const Region& region, const CopyObserver& observe)
{
    return readParts(region, [&observe](const char* data, qint64 count) {
        observe(data, count);
        return Status();
    });
}

Status copyPayload(const Region& region, QIODevice* sink, const QString& label,
                   PayloadCopy::Bytes use, const CopyObserver& observe)
{
    const InputFile& file = *region.file;
    if (region.transform || region.offset + region.bytes < file.size()) {
        Status copied = readParts(region, [&](const char* data, qint64 count) {
            Status written =
                writeAll(sink, QByteArray::fromRawData(data, static_cast<int>(count)), label);
            if (written)
                observe(data, count);
            return written;
        });
        return copied ? file.checkUnchanged() : copied;
    }
    QFile* const payload = file.device();
    if (!payload->seek(region.offset))
        return file.notRead(payload->errorString(), Payload);
    PayloadCopy copy(payload, region.bytes, sink);
    if (copy.run(use, observe))
        return file.checkUnchanged();
    return copy.isPayloadAtFault() ? Status(file.notRead(copy.error(), Payload))
                                   : Status(FileSystem::notWritten(label, copy.error()));
}

Result<std::optional<FileCompare::Difference>>
FileCompare::compare(const Region& region, const InputFile& model, const CopyObserver& observe)
{
    std::optional<Difference> difference;
    qint64 done = 0;
    Region common = region;
    common.bytes = qMin(region.bytes, model.size());
    Status status = readParts(common, [&](const char* data, qint64 count) {
        const auto other = model.bytesAt(done, count);
        if (!other)
            return Status(tl::unexpected<Finding>(other.error()));
        const QByteArray own = QByteArray::fromRawData(data, static_cast<int>(count));
        const int same = firstDifference(own, *other);
        if (!difference && own != *other)
            difference =
                Difference{region.offset + done + same, byteAt(*other, same), byteAt(own, same)};
        done += count;
        observe(data, count);
        return Status();
    });
    if (!status)
        return tl::unexpected<Finding>(status.error());
    return difference;
}

int FileCompare::firstDifference(const QByteArray& one, const QByteArray& other)
{
    return static_cast<int>(
        std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin());
}

QString FileCompare::byteAt(const QByteArray& bytes, int index)
{
    if (index >= bytes.size())
        return QStringLiteral("the end");
    return QStringLiteral("0x%1").arg(static_cast<uchar>(bytes.at(index)), 2, 16, QLatin1Char('0'));
}
