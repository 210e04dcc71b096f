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
Status readParts(const InputFile& file, qint64 offset, qint64 bytes, Take take)
{
    QByteArray chunk(static_cast<int>(qMin<qint64>(ChunkBytes, bytes)), Qt::Uninitialized);
    for (qint64 done = 0; done < bytes;) {
        const auto count =
            file.readAt(offset + done, chunk.data(), qMin<qint64>(chunk.size(), bytes - done));
        if (!count)
            return unreadable(count.error());
        if (*count == 0)
            return file.notRead(
                QStringLiteral("the payload ends after %1 of %2 bytes").arg(done).arg(bytes),
                Payload);
        if (const Status status = take(chunk.constData(), *count); !status)
            return status;
        done += *count;
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

Status readAll(const InputFile& file, qint64 offset, qint64 bytes, const CopyObserver& observe)
{
    return readParts(file, offset, bytes, [&observe](const char* data, qint64 count) {
        observe(data, count);
        return Status();
    });
}

Status copyPayload(const InputFile& file, qint64 offset, QIODevice* sink, const QString& label,
                   PayloadCopy::Bytes use, const CopyObserver& observe)
{
    QFile* const payload = file.device();
    if (!payload->seek(offset))
        return file.notRead(payload->errorString(), Payload);
    PayloadCopy copy(payload, file.size() - offset, sink);
    if (copy.run(use, observe))
        return {};
    return copy.isPayloadAtFault() ? Status(file.notRead(copy.error(), Payload))
                                   : Status(FileSystem::notWritten(label, copy.error()));
}

Result<std::optional<FileCompare::Difference>> FileCompare::compare(const InputFile& file,
                                                                    qint64 start,
                                                                    const InputFile& model,
                                                                    const CopyObserver& observe)
{
    const qint64 bytes = qMin(file.size() - start, model.size());
    for (qint64 done = 0; done < bytes; done += ChunkBytes) {
        const qint64 wanted = qMin<qint64>(ChunkBytes, bytes - done);
        const auto own = file.bytesAt(start + done, wanted);
        if (!own)
            return tl::unexpected<Finding>(own.error());
        const auto other = model.bytesAt(done, wanted);
        if (!other)
            return tl::unexpected<Finding>(other.error());
        if (*own != *other) {
            const int same = firstDifference(*own, *other);
            return Difference{start + done + same, byteAt(*other, same), byteAt(*own, same)};
        }
        observe(own->constData(), wanted);
    }
    return std::nullopt;
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
