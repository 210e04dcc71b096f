#include "tool/files/Copy.h"

#include "fcf/FcfDevice.h"
#include "tool/files/InputFile.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int ChunkBytes = 1024 * 1024;
constexpr char FillerByte = '\xff';
const QString Payload = "payload";

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

FileSystem::OrReason<void> writeAll(QIODevice* device, const QByteArray& bytes)
{
    QString error;
    if (FcfDevice::writeAll(device, bytes, &error))
        return {};
    return tl::make_unexpected(error);
}

Status writeAll(QIODevice* sink, const QByteArray& bytes, const QString& label)
{
    const auto written = writeAll(sink, bytes);
    return written ? Status() : FileSystem::notWritten(label, written.error());
}

Result<QByteArray> Region::bytesAt(qint64 position, qint64 count) const
{
    auto taken = file->bytesAt(offset + position, qMin(count, bytes - position));
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

Status Filler::write(QIODevice* sink, qint64 bytes, const QString& label,
                     const CopyObserver& observe)
{
    const QByteArray chunk(static_cast<int>(qMin<qint64>(bytes, ChunkBytes)), FillerByte);
    for (qint64 left = bytes; left > 0; left -= chunk.size()) {
        const QByteArray part = chunk.left(static_cast<int>(qMin<qint64>(left, chunk.size())));
        if (Status status = writeAll(sink, part, label); !status)
            return status;
        observe(part.constData(), part.size());
    }
    return {};
}

Result<bool> Filler::isIn(const Region& region)
{
    bool isFiller = true;
    return readAll(region,
                   [&isFiller](const char* data, qint64 count) {
                       isFiller = isFiller && std::all_of(data, data + count, [](char byte) {
                                      return byte == FillerByte;
                                  });
                   })
        .map([&isFiller] { return isFiller; });
}

Result<FileCompare::Difference> FileCompare::compare(const Region& region, const Region& model,
                                                     const CopyObserver& observe)
{
    Difference difference;
    qint64 done = 0;
    Region common = region;
    common.bytes = qMin(region.bytes, model.bytes);
    return readParts(common,
                     [&](const char* data, qint64 count) {
                         const auto other = model.bytesAt(done, count);
                         if (!other)
                             return Status(tl::unexpected<Finding>(other.error()));
                         if (other->size() < count)
                             return Status(model.file->notRead("it ends early"));
                         const QByteArray own =
                             QByteArray::fromRawData(data, static_cast<int>(count));
                         if (difference.count == 0 && own != *other) {
                             const int same = firstDifference(own, *other);
                             difference.offset = done + same;
                             difference.expected = byteAt(*other, same);
                             difference.found = byteAt(own, same);
                         }
                         if (own != *other)
                             difference.count += std::inner_product(
                                 own.begin(), own.end(), other->begin(), qint64(0), std::plus<>(),
                                 std::not_equal_to<>());
                         done += count;
                         observe(data, count);
                         return Status();
                     })
        .map([&difference] { return difference; });
}

int FileCompare::firstDifference(const QByteArray& one, const QByteArray& other)
{
    return static_cast<int>(
        std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin());
}

QString FileCompare::byteAt(const QByteArray& bytes, int index)
{
    if (index >= bytes.size())
        return "the end";
    return QStringLiteral("0x%1").arg(static_cast<uchar>(bytes.at(index)), 2, 16, QLatin1Char('0'));
}
