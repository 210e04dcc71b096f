// Any header whose texts keep the rules of the format comes back from its page as it was.
//
// The input is taken as a structure: 44 bytes of numbers, then texts that a zero byte ends, six for
// the header and four for each function.

#include "fuzz/FuzzTarget.h"

#include "fcf/FcfExactReader.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/check/TextRules.h"

#include <QBuffer>
#include <QtEndian>
#include <QTextCodec>

namespace {

constexpr int MostFunctions = 16;

template <class Record, int Count>
void fill(const FcfLayout::TextField<Record> (&fields)[Count], QList<QByteArray>* texts,
          Record* record)
{
    for (const auto& field : fields) {
        const QString text = texts->isEmpty() ? QString() : QString::fromUtf8(texts->takeFirst());
        record->*field.value = field.whenWritten == FcfLayout::Trimmed ? text.trimmed() : text;
    }
}

FcfHeader headerOf(const QByteArray& bytes)
{
    FcfHeader header;
    for (const auto& field : FcfLayout::Numbers) {
        if (field.offset + FcfLayout::WordBytes <= bytes.size())
            header.*field.value = qFromBigEndian<qint32>(bytes.constData() + field.offset);
    }
    QList<QByteArray> texts = bytes.mid(FcfLayout::NumberCount * FcfLayout::WordBytes).split('\0');
    fill(FcfLayout::HeaderTexts, &texts, &header);
    while (!texts.isEmpty() && header.functions.size() < MostFunctions) {
        FcfFunction function;
        fill(FcfLayout::FunctionTexts, &texts, &function);
        header.functions.append(function);
    }
    return header;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    const FcfHeader header =
        headerOf(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    if (!TextRules::brokenRecords(header).isEmpty() ||
        !TextRules::notEncodable(header, codec).isEmpty())
        return 0;
    const FcfWriter writer(codec);
    QByteArray page = writer.compose(header);
    if (page.size() > FcfLayout::PageBytes)
        return 0;
    page += writer.fillerFor(page.size());
    require(page.size() >= FcfLayout::PageBytes, "a page that is not filled");

    QBuffer device(&page);
    device.open(QIODevice::ReadOnly);
    const FcfExactReading reading = FcfExactReader::read(&device, codec);
    require(reading.outcome == FcfExactReading::Complete, "own page is not complete");
    require(reading.header == header, "the header came back changed");
    require(writer.compose(reading.header) == page.left(reading.textEnd), "another page");
    return 0;
}
