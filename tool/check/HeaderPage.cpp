#include "tool/check/HeaderPage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/base/Text.h"
#include "tool/check/PayloadKind.h"
#include "tool/check/TextRules.h"
#include "tool/files/Filler.h"
#include "tool/files/InputFile.h"

#include <QBuffer>
#include <QTextCodec>
#include <QVector>

#include <algorithm>

namespace {

const QString TextField = "text";
const QString End = "the end";

/// Whether the reserved words or the beginning of the text are at their places in \p start.
bool hasTraceOfPage(const QByteArray& start)
{
    const int offset = FcfLayout::NumberCount * FcfLayout::WordBytes;
    const QByteArray word(FcfLayout::WordBytes, '\xff');
    for (int at = offset; at < FcfLayout::PreambleBytes; at += FcfLayout::WordBytes) {
        if (start.mid(at, FcfLayout::WordBytes) == word)
            return true;
    }
    return start.at(FcfLayout::PreambleBytes) == '\n';
}

/// What \p start, which is no page, is instead; empty if it looks like a page.
QString otherContent(const QByteArray& start)
{
    if (start.size() <= FcfLayout::PreambleBytes)
        return QString();
    if (start.count('\xff') == start.size())
        return "it is erased flash, 0xFF from its start";
    if (start.count('\0') == start.size())
        return "it has nothing but zeros at its start";
    if (const QString swap = PayloadKind::swapOfImage(start); !swap.isEmpty())
        return QStringLiteral("its words are %1; read it in the order of the flash").arg(swap);
    if (!hasTraceOfPage(start))
        return "neither the reserved words nor the beginning of the text are there";
    return QString();
}

/// Makes the finding why the first bytes of a file are no page.
class PageFlaw {
public:
    PageFlaw(const InputFile& file, const QTextCodec* codec, ExitCode exitCode)
        : m_file(file), m_codec(codec), m_exitCode(exitCode)
    {
    }

    /// \p reading is that of \p start.
    Finding finding(const FcfExactReading& reading, const QByteArray& start) const
    {
        const QString other = otherContent(start);
        if (!other.isEmpty())
            return error(TextField, "is no FCF file: " + other);

        switch (reading.outcome) {
        case FcfExactReading::NoText:
            return withoutText();
        case FcfExactReading::NoFilenameLine:
            return withoutFilenameLine(start);
        case FcfExactReading::EndedEarly:
            return withoutEnd();
        case FcfExactReading::Deviates:
        case FcfExactReading::Complete:
            break;
        }
        return deviating(reading);
    }

private:
    Finding withoutText() const
    {
        return error(TextField, "is no FCF header page: it ends before the text")
            .at(qMin<qint64>(m_file.size(), FcfLayout::PreambleBytes))
            .comparing(keyword(), End);
    }

    Finding withoutFilenameLine(const QByteArray& start) const
    {
        const int place = FcfLayout::PreambleBytes + 1;
        return error("fileName",
                     QStringLiteral("is no FCF header page: its text does not begin with \"%1\"")
                         .arg(keyword()))
            .at(place)
            .comparing(keyword(), m_codec->toUnicode(start.mid(place, keyword().size())));
    }

    Finding withoutEnd() const
    {
        const bool goesOn = m_file.size() > FcfExactReader::MaximumBytes;
        return error(TextField, "is no whole FCF header page: its text does not end")
            .at(qMin<qint64>(m_file.size(), FcfExactReader::MaximumBytes))
            .comparing(QLatin1String(FcfLayout::TextEnd), goesOn ? "more text" : End);
    }

    Finding deviating(const FcfExactReading& reading) const
    {
        const FcfSpan& deviation = reading.deviation;
        const QString field =
            deviation.field ? TextRules::fieldName(deviation.field, deviation.function) : TextField;
        return error(field, "is not what an FCF header page has here")
            .at(deviation.offset)
            .comparing(reading.expected, reading.found);
    }

    static QString keyword() { return QLatin1String(FcfLayout::FirstLineKeyword); }

    Finding error(const QString& field, const QString& reason) const
    {
        return failure(m_exitCode, m_file.label(), field, reason).value();
    }

    const InputFile& m_file;
    /// Not owned.
    const QTextCodec* m_codec;
    ExitCode m_exitCode;
};

FcfExactReading parsed(QByteArray start, QTextCodec* codec)
{
    QBuffer device(&start);
    device.open(QIODevice::ReadOnly);
    return FcfExactReader::read(&device, codec);
}

constexpr int LongestCharacter = 4;
/// An escape like \xff has four characters in place of one byte.
constexpr int EscapeGrowth = 3;

/// The bytes of the character at \p offset in \p bytes, or 0 if \p codec cannot decode it.
int characterLength(const QByteArray& bytes, int offset, const QTextCodec* codec)
{
    for (int length = 1; length <= LongestCharacter; ++length) {
        if (decodedText(bytes.mid(offset, length).toStdString(), codec, QString()))
            return length;
    }
    return 0;
}

/// A page in which escapes are in place of the bytes that cannot be decoded.
struct EscapedPage {
    EscapedPage(const QByteArray& start, const QTextCodec* codec);

    /// Where a place in the escaped page was before.
    int unescaped(int offset) const
    {
        const auto isBefore = [offset](int escape) { return escape < offset; };
        const auto before = std::count_if(escapes.begin(), escapes.end(), isBefore);
        return offset - EscapeGrowth * static_cast<int>(before);
    }

    QByteArray bytes;
    /// Their offsets.
    QVector<int> escapes;
};

EscapedPage::EscapedPage(const QByteArray& start, const QTextCodec* codec)
    : bytes(start.left(FcfLayout::PreambleBytes))
{
    int offset = bytes.size();
    while (offset < start.size()) {
        const int length = characterLength(start, offset, codec);
        if (length > 0) {
            bytes += start.mid(offset, length);
            offset += length;
            continue;
        }

        escapes << bytes.size();
        bytes += "\\x" + start.mid(offset, 1).toHex();
        ++offset;
    }
}

/// The bytes of \p file that a page can have. Few pages are longer than the first part.
Result<QByteArray> pageBytes(const InputFile& file)
{
    auto start = file.bytesAt(0, qMin<qint64>(file.size(), FcfLayout::PageBytes));
    const QByteArray end = "\n" + QByteArray(FcfLayout::TextEnd) + "\n";
    if (!start || start->contains(end))
        return start;

    return file.bytesAt(0, FcfExactReader::MaximumBytes);
}

} // namespace

Result<HeaderPage> HeaderPage::read(const InputFile& file, QTextCodec* codec, ExitCode exitCode,
                                    Bytes bytes)
{
    const auto start = pageBytes(file);
    if (!start)
        return tl::unexpected<Finding>(start.error());

    HeaderPage page;
    page.reading = parsed(*start, codec);
    int textEnd = page.reading.textEnd;
    if (page.reading.outcome != FcfExactReading::Complete) {
        page.flaw = PageFlaw(file, codec, exitCode).finding(page.reading, *start);
        if (bytes == Exact)
            return tl::unexpected<Finding>(*page.flaw);

        const EscapedPage escaped(*start, codec);
        page.reading = parsed(escaped.bytes, codec);
        if (page.reading.outcome != FcfExactReading::Complete)
            return tl::unexpected<Finding>(*page.flaw);
        textEnd = escaped.unescaped(page.reading.textEnd);
    }

    page.bytes = textEnd + FcfWriter(codec).fillerFor(textEnd).size();
    return page;
}

Status HeaderPage::measure(const InputFile& file)
{
    // 0 when even the header page is cut short.
    payloadBytes = qMax<qint64>(0, file.size() - bytes);

    const qint64 stated = reading.header.binFileSize;
    if (stated <= 0 || stated >= payloadBytes)
        return {};

    const qint64 rest = payloadBytes - stated;
    const auto isFiller = Filler::isIn({&file, bytes + stated, rest, nullptr});
    if (!isFiller)
        return tl::unexpected<Finding>(isFiller.error());

    if (*isFiller) {
        payloadBytes = stated;
        fillerBytes = rest;
    }
    return {};
}
