#include "tool/check/HeaderPage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/check/TextRules.h"
#include "tool/files/InputFile.h"

#include <QBuffer>
#include <QTextCodec>

namespace {

const QString End = QStringLiteral("the end");

/// Why \p start, the first bytes of \p file, is no page, as far as \p reading tells.
Finding explained(const FcfExactReading& reading, const QByteArray& start, const InputFile& file,
                  const QTextCodec* codec, ExitCode exitCode)
{
    const auto error = [&](const QString& field, const QString& reason) {
        return failure(exitCode, file.label(), field, reason).value();
    };
    const QString keyword = QLatin1String(FcfLayout::FirstLineKeyword);
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
