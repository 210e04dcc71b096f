// The reader of the generator window reads any bytes, and again what is written of the texts read.

#include "fuzz/FuzzTarget.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfReader.h"
#include "fcf/FcfWriter.h"

#include <QBuffer>
#include <QTextCodec>

namespace {

FcfReading readAs(QByteArray bytes, QTextCodec* codec)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return FcfReader::read(&device, codec);
}

/// Whether a text has a mark in it, so that a reader ends a record too early.
bool hasMark(const FcfHeader& header)
{
    const QString mark = QLatin1String(FcfLayout::RecordEnd);
    for (const auto& field : FcfLayout::HeaderTexts) {
        if ((header.*field.value).contains(mark))
            return true;
    }
    for (const FcfFunction& function : header.functions) {
        for (const auto& field : FcfLayout::FunctionTexts) {
            if ((function.*field.value).contains(mark))
                return true;
        }
    }
    return false;
}

void checkOutcome(const FcfReading& reading, const QByteArray& bytes)
{
    if (reading.outcome == FcfReading::Complete)
        require(bytes.contains(FcfLayout::TextEnd), "complete without an end mark");
    if (reading.outcome == FcfReading::NoFilenameLine)
        require(reading.header.functions.isEmpty() && reading.header.author.isEmpty(),
                "texts without a header");
    // A name has no limit, but a record takes a line of its own for each of its fields.
    require(reading.header.functions.size() <= bytes.count('\n') + 1, "more functions than lines");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    static QTextCodec* const latin1 = QTextCodec::codecForName("ISO-8859-1");
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    for (QTextCodec* const codec : {utf8, latin1}) {
        const FcfReading reading = readAs(bytes, codec);
        checkOutcome(reading, bytes);
        const QByteArray page = FcfWriter(codec).compose(reading.header);
        const bool isComplete = readAs(page, codec).outcome == FcfReading::Complete;
        require(isComplete || hasMark(reading.header), "own page is not complete");
    }
    return 0;
}
