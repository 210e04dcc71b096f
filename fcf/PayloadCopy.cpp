#include "fcf/PayloadCopy.h"

#include "fcf/FcfDevice.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>

#ifdef __linux__
#include <unistd.h>
#endif

namespace {

/// Bytes read at a time. They stay in the processor's cache until they are written.
const int PieceBytes = 256 * 1024;
/// Bytes that the kernel copies at a time, so that a person sees the progress.
const qint64 KernelPieceBytes = qint64(4) * 1024 * 1024;

/// The file behind \p device if it is one that the kernel can copy from or to, else null.
QFile* fileOf(QIODevice* device)
{
    QFile* const file = qobject_cast<QFile*>(device);
    return file && !file->isSequential() && file->handle() >= 0 ? file : nullptr;
}

/// Copies up to \p bytes bytes and moves both offsets on. Returns how many, or -1 where the kernel
/// refuses; reading and writing then shows the reason.
qint64 copyFileRange(const QFile& from, qint64* fromOffset, const QFile& to, qint64* toOffset,
                     qint64 bytes)
{
#ifdef __linux__
    loff_t in = *fromOffset;
    loff_t out = *toOffset;
    ssize_t count = -1;
    do
        count = ::copy_file_range(from.handle(), &in, to.handle(), &out,
                                  static_cast<std::size_t>(bytes), 0);
    while (count < 0 && errno == EINTR);
    *fromOffset = in;
    *toOffset = out;
    return count;
#else
    Q_UNUSED(from)
    Q_UNUSED(fromOffset)
    Q_UNUSED(to)
    Q_UNUSED(toOffset)
    Q_UNUSED(bytes)
    return -1;
#endif
}

} // namespace

PayloadCopy::PayloadCopy(QIODevice* payload, qint64 bytes, QIODevice* image)
    : m_payload(payload), m_image(image), m_bytes(bytes), m_copied(0), m_isPayloadAtFault(false)
{
}

bool PayloadCopy::run(Bytes use, const Observer& observer)
{
    if (use == Unseen)
        copyInKernel(observer);
    return copyPieces(observer) && checkEnd();
}

void PayloadCopy::copyInKernel(const Observer& observer)
{
    QFile* const from = fileOf(m_payload);
    QFile* const to = fileOf(m_image);
    if (!from || !to || !to->flush())
        return;

    qint64 fromOffset = from->pos();
    qint64 toOffset = to->pos();
    while (m_copied < m_bytes) {
        const qint64 missing = m_bytes - m_copied;
        const qint64 count =
            copyFileRange(*from, &fromOffset, *to, &toOffset, qMin(KernelPieceBytes, missing));
        if (count <= 0)
            break;

        m_copied += count;
        if (observer)
            observer(nullptr, count);
    }

    from->seek(fromOffset);
    to->seek(toOffset);
}

bool PayloadCopy::copyPieces(const Observer& observer)
{
    if (m_copied == m_bytes)
        return true;

    QByteArray buffer(static_cast<int>(qMin<qint64>(PieceBytes, m_bytes)), Qt::Uninitialized);
    while (m_copied < m_bytes) {
        const qint64 missing = m_bytes - m_copied;
        const qint64 count = m_payload->read(buffer.data(), qMin<qint64>(buffer.size(), missing));
        if (count < 0)
            return fail(true, m_payload->errorString());
        if (count == 0)
            return fail(true,
                        tr("the payload ends after %1 of %2 bytes").arg(m_copied).arg(m_bytes));

        const QByteArray piece =
            QByteArray::fromRawData(buffer.constData(), static_cast<int>(count));
        QString error;
        if (!FcfDevice::writeAll(m_image, piece, &error))
            return fail(false, error);

        m_copied += count;
        if (observer)
            observer(buffer.constData(), count);
    }
    return true;
}

/// A payload that has grown, as when it is the image itself, must not go unnoticed.
bool PayloadCopy::checkEnd()
{
    char more = '\0';
    const qint64 count = m_payload->read(&more, 1);
    if (count < 0)
        return fail(true, m_payload->errorString());
    if (count > 0)
        return fail(true, tr("the payload is longer than its %1 bytes").arg(m_bytes));
    return true;
}

bool PayloadCopy::fail(bool isPayloadAtFault, const QString& error)
{
    m_isPayloadAtFault = isPayloadAtFault;
    m_error = error;
    return false;
}
