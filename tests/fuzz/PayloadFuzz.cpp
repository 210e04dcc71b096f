// Sizes, target codes and the copy of a payload: whatever the devices do, a copy that reports
// success has copied every byte, and one that does not has a reason.
//
// The input is taken as a structure: eight bytes of choices, then the payload.

#include "fuzz/FuzzTarget.h"
#include "support/StubbornDevices.h"

#include "fcf/FcfHeader.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "fcf/PayloadCopy.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"

#include <QBuffer>
#include <QTemporaryFile>
#include <QtEndian>

namespace {

constexpr int ChoiceBytes = 8;

void checkSizes(qint32 bytes)
{
    const PelkFcfGeneratorFileInfo info;
    require(info.getFileSize("/proc/self/exe") > 0, "a program without a size");
    if (bytes < 0)
        return;
    const qint64 pages = qint64(info.blocks(bytes)) * FcfLayout::BlockPages + info.pages(bytes);
    require(pages * FcfLayout::PageBytes >= bytes, "too few pages");
    require((pages - 1) * FcfLayout::PageBytes < bytes || bytes == 0, "too many pages");
    require(info.measure(bytes).binFileSize == bytes, "another size");
}

void checkFiller(int headerBytes)
{
    const int filler = FcfWriter().fillerFor(headerBytes).size();
    require(filler == 0 ? headerBytes >= FcfLayout::PageBytes
                        : headerBytes + filler >= FcfLayout::PageBytes,
            "a page that is not filled");
}

void checkTargets(qint32 moduleCode, qint32 deviceCode)
{
    const FcfTarget::Target* const target = FcfTarget::find(moduleCode, deviceCode);
    if (target) {
        require(FcfTarget::moduleCode(target->module) == moduleCode, "another module");
        require(FcfTarget::deviceCode(target->module, target->device, 0) == deviceCode,
                "another device");
    }
    require(FcfTarget::moduleCode("no module") != 0, "no code at all");
    require(FcfTarget::deviceCode("DFE", "no device", deviceCode) == deviceCode,
            "a code of its own");
    for (const QString& module : FcfTarget::modules()) {
        for (const QString& device : FcfTarget::devicesOf(module))
            require(FcfTarget::deviceCode(module, device, -1) != 0, "a device without a code");
    }
}

void checkCopy(QIODevice* from, const QByteArray& payload, qint64 bytes, QIODevice* to,
               PayloadCopy::Bytes use, const std::function<QByteArray()>& copied)
{
    qint64 seen = 0;
    PayloadCopy copy(from, bytes, to);
    const bool isWhole = copy.run(use, [&seen](const char*, qint64 more) { seen += more; });
    require(isWhole == copy.error().isEmpty(), "a failure without a reason");
    if (isWhole)
        require(seen == bytes && copied() == payload && payload.size() == bytes, "a false success");
}

void copyBetweenFiles(const QByteArray& payload, qint64 bytes, PayloadCopy::Bytes use)
{
    static QTemporaryFile from;
    static QTemporaryFile to;
    require((from.isOpen() || from.open()) && from.resize(0) && from.seek(0) &&
                from.write(payload) == payload.size() && from.flush() && from.seek(0),
            "no file to copy");
    require(to.isOpen() || to.open(), "no file to copy to");
    require(to.resize(0), "no empty file");
    QFile target(to.fileName());
    require(target.open(QIODevice::ReadWrite | QIODevice::Unbuffered), "no writing");
    checkCopy(&from, payload, bytes, &target, use, [] {
        to.seek(0);
        return to.readAll();
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < ChoiceBytes)
        return 0;
    const qint32 number = qFromBigEndian<qint32>(data);
    checkSizes(number);
    checkFiller(data[2] * 16 + data[3]);
    checkTargets(data[0] % 4, data[1] % 16);

    const QByteArray payload(reinterpret_cast<const char*>(data) + ChoiceBytes,
                             static_cast<int>(size) - ChoiceBytes);
    const qint64 bytes = qMax(0, payload.size() + static_cast<signed char>(data[4]) % 4);
    const auto use = data[5] % 2 == 0 ? PayloadCopy::Unseen : PayloadCopy::Seen;
    copyBetweenFiles(payload, bytes, use);

    FailingSource source(payload, qMin<int>(payload.size(), data[6]));
    LimitedSink sink(data[7], data[5] % 4 < 2 ? LimitedSink::Fails : LimitedSink::TakesNothing,
                     1 + data[6] % 16);
    checkCopy(&source, payload, bytes, &sink, use, [&sink] { return sink.bytes(); });

    QBuffer buffer;
    buffer.setData(payload);
    buffer.open(QIODevice::ReadOnly);
    LimitedSink other(data[7], LimitedSink::Fails);
    checkCopy(&buffer, payload, bytes, &other, use, [&other] { return other.bytes(); });

    FcfHeader header;
    header.stamp(QDateTime::fromSecsSinceEpoch(number));
    require(header.time.size() == 8, "a time of another length");
    require(header != FcfHeader() && !(FcfFunction() != FcfFunction()), "equal headers");
    return 0;
}
