// A page that the exact reader takes whole is the page that the writer makes of what it read.

#include "fuzz/FuzzTarget.h"

#include "fcf/FcfExactReader.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"

#include <QBuffer>
#include <QTextCodec>

#include <algorithm>

namespace {

bool isAsWritten(const FcfExactReading& reading)
{
    const auto& words = reading.reservedWords;
    // A writer trims descriptions, so one with blanks around it comes from elsewhere.
    const auto isTrimmed = [](const QString& text) { return text == text.trimmed(); };
    return std::all_of(words.begin(), words.end(),
                       [](quint32 word) { return word == FcfLayout::ReservedWord; }) &&
           isTrimmed(reading.header.description) &&
           std::all_of(reading.header.functions.begin(), reading.header.functions.end(),
                       [&](const FcfFunction& each) { return isTrimmed(each.description); });
}

void checkSpans(const FcfExactReading& reading, int size)
{
    int last = 0;
    for (const FcfSpan& span : reading.spans) {
        require(span.offset >= last && span.offset <= size, "spans are out of order");
        require(span.function < reading.header.functions.size(), "span of no function");
        last = span.offset + span.length;
        require(span.length >= 0 && last <= size, "a span is longer than the page");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    const FcfExactReading reading = FcfExactReader::read(&device, codec);
    checkSpans(reading, bytes.size());
    if (reading.outcome == FcfExactReading::Deviates)
        require(reading.deviation.offset <= bytes.size(), "deviation behind the end");
    if (reading.outcome == FcfExactReading::Complete && isAsWritten(reading))
        require(FcfWriter(codec).compose(reading.header) == bytes.left(reading.textEnd),
                "a complete page is not what the writer makes of it");
    return 0;
}
