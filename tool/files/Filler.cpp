#include "tool/files/Filler.h"

#include "tool/files/Copy.h"

#include <algorithm>

namespace {

constexpr char FillerByte = '\xff';

} // namespace

Status Filler::write(QIODevice* output, qint64 bytes, const QString& label,
                     const CopyObserver& observe)
{
    const QByteArray chunk(static_cast<int>(qMin<qint64>(bytes, ChunkBytes)), FillerByte);
    for (qint64 left = bytes; left > 0; left -= chunk.size()) {
        const QByteArray part = chunk.left(static_cast<int>(qMin<qint64>(left, chunk.size())));
        if (Status status = writeOutput(output, part, label); !status)
            return status;

        observe(part.constData(), part.size());
    }
    return {};
}

Result<qint64> Filler::count(const Region& region)
{
    qint64 filler = 0;
    bool hasEnded = false;
    const Status read = readAll(region, [&](const char* data, qint64 bytes) {
        if (hasEnded)
            return;

        const char* const end =
            std::find_if(data, data + bytes, [](char byte) { return byte != FillerByte; });
        filler += end - data;
        hasEnded = end != data + bytes;
    });
    if (!read)
        return tl::unexpected<Finding>(read.error());

    return filler;
}

Result<bool> Filler::isIn(const Region& region)
{
    const Result<qint64> filler = count(region);
    if (!filler)
        return tl::unexpected<Finding>(filler.error());

    return *filler == region.bytes;
}
