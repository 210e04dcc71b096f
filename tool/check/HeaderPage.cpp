#include "tool/check/HeaderPage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/base/Text.h"
#include "tool/check/TextRules.h"
#include "tool/files/Copy.h"
#include "tool/files/InputFile.h"

#include <QBuffer>
#include <QTextCodec>
#include <QVector>

#include <algorithm>

namespace {

const QString End = "the end";

/// What \p start, which is no page, is in place of one; empty if it looks like a page.
QString otherContent(const QByteArray& start)
{
    if (start.size() <= FcfLayout::PreambleBytes)
        return QString();
    if (start.count('\xff') == start.size())
        return "it is erased flash, 0xFF from its start";
    if (start.count('\0') == start.size())
        return "it has nothing but zeros at its start";
    const int offset = FcfLayout::NumberCount * FcfLayout::WordBytes;
    const QByteArray word(FcfLayout::WordBytes, '\xff');
    for (int at = offset; at < FcfLayout::PreambleBytes; at += FcfLayout::WordBytes) {
        if (start.mid(at, FcfLayout::WordBytes) == word)
            return QString();
    }
    return start.at(FcfLayout::PreambleBytes) == '\n'
               ? QString()
               : "neither the reserved words nor the beginning of the text are there";
}

/// Why \p start, the first bytes of \p file, is no page, according to \p reading.
Finding explained(const FcfExactReading& reading, const QByteArray& start, const InputFile& file,
                  const QTextCodec* codec, ExitCode exitCode)
{
    const QString text = "text";
    const auto error = [&](const QString& field, const QString& reason) {
        return failure(exitCode, file.label(), field, reason).value();
    };
    const QString keyword = QLatin1String(FcfLayout::FirstLineKeyword);
    const QString other = otherContent(start);
    if (!other.isEmpty())
        return error(text, "is no FCF file: " + other);
    switch (reading.outcome) {
    case FcfExactReading::NoText:
        return error(text, "is no FCF header page: it ends before the text")
            .at(qMin<qint64>(file.size(), FcfLayout::PreambleBytes))
            .comparing(keyword, End);
    case FcfExactReading::NoFilenameLine:
        return error("fileName",
                     QStringLiteral("is no FCF header page: its text does not begin with \"%1\"")
                         .arg(keyword))
            .at(FcfLayout::PreambleBytes + 1)
            .comparing(keyword,
                       codec->toUnicode(start.mid(FcfLayout::PreambleBytes + 1, keyword.size())));
    case FcfExactReading::EndedEarly:
        return error(text, "is no whole FCF header page: its text does not end")
            .at(qMin<qint64>(file.size(), FcfExactReader::MaximumBytes))
            .comparing(QLatin1String(FcfLayout::TextEnd),
                       file.size() > FcfExactReader::MaximumBytes ? "more text" : End);
    case FcfExactReading::Deviates:
    case FcfExactReading::Complete:
        break;
    }
    const FcfSpan& deviation = reading.deviation;
    return error(deviation.field ? TextRules::fieldName(deviation.field, deviation.function) : text,
                 "is not what an FCF header page has here")
        .at(deviation.offset)
        .comparing(reading.expected, reading.found);
}

FcfExactReading parsed(QByteArray start, QTextCodec* codec)
{
    QBuffer device(&start);
    device.open(QIODevice::ReadOnly);
    return FcfExactReader::read(&device, codec);
}

constexpr int LongestCharacter = 4;
/// Four characters, as in \xff, in place of one byte.
constexpr int EscapeGrowth = 3;

/// \p start with an escape in place of each byte that \p codec cannot decode, and where they are.
QByteArray withEscapes(const QByteArray& start, const QTextCodec* codec, QVector<int>* escapes)
{
    QByteArray escaped = start.left(FcfLayout::PreambleBytes);
    for (int at = escaped.size(); at < start.size();) {
        int length = 1;
        while (length <= LongestCharacter &&
               !textOf(start.mid(at, length).toStdString(), codec, QString()))
            ++length;
        if (length > LongestCharacter) {
            length = 1;
            *escapes << escaped.size();
            escaped += "\\x" + start.mid(at, 1).toHex();
        } else {
            escaped += start.mid(at, length);
        }
        at += length;
    }
    return escaped;
}

} // namespace

Result<HeaderPage> HeaderPage::read(const InputFile& file, QTextCodec* codec, ExitCode exitCode,
                                    Bytes bytes)
{
    auto start = file.bytesAt(0, qMin<qint64>(file.size(), FcfLayout::PageBytes));
    // Few pages are longer.
    const QByteArray end = "\n" + QByteArray(FcfLayout::TextEnd) + "\n";
    if (start && !start->contains(end))
        start = file.bytesAt(0, FcfExactReader::MaximumBytes);
    if (!start)
        return tl::unexpected<Finding>(start.error());
    HeaderPage page;
    page.reading = parsed(*start, codec);
    int textEnd = page.reading.textEnd;
    if (page.reading.outcome != FcfExactReading::Complete) {
        page.flaw = explained(page.reading, *start, file, codec, exitCode);
        QVector<int> escapes;
        if (bytes == Escaped)
            page.reading = parsed(withEscapes(*start, codec, &escapes), codec);
        if (page.reading.outcome != FcfExactReading::Complete)
            return tl::unexpected<Finding>(*page.flaw);
        textEnd = page.reading.textEnd;
        textEnd -=
            EscapeGrowth *
            static_cast<int>(std::count_if(escapes.begin(), escapes.end(),
                                           [textEnd](int place) { return place < textEnd; }));
    }
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
    return Filler::isIn({&file, bytes + said, payloadBytes - said, nullptr})
        .map([this, said](bool isFiller) {
            fillerBytes = isFiller ? payloadBytes - said : 0;
            payloadBytes -= fillerBytes;
        });
}
