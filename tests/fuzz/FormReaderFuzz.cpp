// The reader of the generator window takes any bytes, and gives texts that it can write again.

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
        require(page.size() > FcfLayout::PreambleBytes, "a page without a text");
        require(readAs(page, codec).outcome == FcfReading::Complete, "own page is not complete");
    }
    return 0;
}
