#include "tool/check/HeaderPage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/check/TextRules.h"
#include "tool/files/Copy.h"
#include "tool/files/InputFile.h"

#include <QBuffer>
#include <QTextCodec>

#include <algorithm>

namespace {

const QString End = QStringLiteral("the end");

bool hasReservedWord(const QByteArray& start)
{
    const QByteArray word(FcfLayout::WordBytes, '\xff');
    const int offset = FcfLayout::NumberCount * FcfLayout::WordBytes;
    for (int index = 0; index < FcfLayout::ReservedWordCount; ++index) {
        if (start.mid(offset + index * FcfLayout::WordBytes, FcfLayout::WordBytes) == word)
            return true;
    }
    return false;
}

/// Why \p start, the first bytes of \p file, is no page, according to \p reading.
Finding explained(const FcfExactReading& reading, const QByteArray& start, const InputFile& file,
                  const QTextCodec* codec, ExitCode exitCode)
{
    const auto error = [&](const QString& field, const QString& reason) {
        return failure(exitCode, file.label(), field, reason).value();
    };
    const QString keyword = QLatin1String(FcfLayout::FirstLineKeyword);
    const QString text = QStringLiteral("text");
    if (start.size() > FcfLayout::PreambleBytes && start.count('\xff') == start.size())
        return error(text,
                     QStringLiteral("is no FCF file: it is erased flash, 0xFF from its start"));
    if (start.size() > FcfLayout::PreambleBytes && start.count('\0') == start.size())
        return error(text, QStringLiteral("is no FCF file: it has nothing but zeros at its start"));
    if (start.size() > FcfLayout::PreambleBytes && start.at(FcfLayout::PreambleBytes) != '\n' &&
        !hasReservedWord(start))
        return error(text, QStringLiteral("is no FCF file: neither the reserved words nor the "
                                          "beginning of the text are there"));
    switch (reading.outcome) {
    case FcfExactReading::NoText:
        return error(QStringLiteral("text"),
                     QStringLiteral("is no FCF header page: it ends before the text"))
            .at(qMin<qint64>(file.size(), FcfLayout::PreambleBytes))
            .comparing(keyword, End);
    case FcfExactReading::NoFilenameLine:
        return error(QStringLiteral("fileName"),
                     QStringLiteral("is no FCF header page: its text does not begin with \"%1\"")
                         .arg(keyword))
            .at(FcfLayout::PreambleBytes + 1)
            .comparing(keyword,
                       codec->toUnicode(start.mid(FcfLayout::PreambleBytes + 1, keyword.size())));
    case FcfExactReading::EndedEarly:
        return error(QStringLiteral("text"),
                     QStringLiteral("is no whole FCF header page: its text does not end"))
            .at(qMin<qint64>(file.size(), FcfExactReader::MaximumBytes))
            .comparing(QLatin1String(FcfLayout::TextEnd), file.size() > FcfExactReader::MaximumBytes
                                                              ? QStringLiteral("more text")
                                                              : End);
    case FcfExactReading::Deviates:
    case FcfExactReading::Complete:
        break;
    }
    const FcfSpan& deviation = reading.deviation;
    return error(deviation.field ? TextRules::fieldName(deviation.field, deviation.function)
                                 : QStringLiteral("text"),
                 QStringLiteral("is not what an FCF header page has here"))
        .at(deviation.offset)
        .comparing(reading.expected, reading.found);
}

} // namespace

Result<HeaderPage> HeaderPage::read(const InputFile& file, QTextCodec* codec, ExitCode exitCode)
{
    auto start = file.bytesAt(0, qMin<qint64>(file.size(), FcfLayout::PageBytes));
    // Few pages are longer.
    const QByteArray end = "\n" + QByteArray(FcfLayout::TextEnd) + "\n";
    if (start && !start->contains(end))
        start = file.bytesAt(0, FcfExactReader::MaximumBytes);
    if (!start)
        return tl::unexpected<Finding>(start.error());
    QBuffer device(&*start);
    device.open(QIODevice::ReadOnly);
    HeaderPage page;
    page.reading = FcfExactReader::read(&device, codec);
    if (page.reading.outcome != FcfExactReading::Complete)
        return tl::unexpected<Finding>(explained(page.reading, *start, file, codec, exitCode));
    const int textEnd = page.reading.textEnd;
    page.bytes = textEnd + FcfWriter(codec).fillerFor(textEnd).size();
    return page;
}

Status HeaderPage::measure(const InputFile& file)
{
    // 0 when even the header page is cut short.
    payloadBytes = qMax<qint64>(0, file.size() - bytes);
    const qint64 said = reading.header.binFileSize;
    if (said <= 0 || said >= payloadBytes)
        return {};
    bool isFiller = true;
    Status status = readAll({&file, bytes + said, payloadBytes - said, nullptr},
                            [&isFiller](const char* data, qint64 count) {
                                isFiller = isFiller && std::all_of(data, data + count, [](char c) {
                                               return c == '\xff';
                                           });
                            });
    if (status && isFiller) {
        fillerBytes = payloadBytes - said;
        payloadBytes = said;
    }
    return status;
}
