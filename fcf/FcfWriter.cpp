#include "fcf/FcfWriter.h"

#include "fcf/FcfLayout.h"

#include <QScopedPointer>
#include <QtEndian>
#include <QTextCodec>
#include <QTextEncoder>

namespace {

QByteArray bigEndian(quint32 word)
{
    QByteArray bytes(FcfLayout::WordBytes, Qt::Uninitialized);
    qToBigEndian(word, reinterpret_cast<uchar*>(bytes.data()));
    return bytes;
}

QByteArray preamble(const FcfHeader& header)
{
    QByteArray bytes;
    for (const FcfLayout::NumberField& field : FcfLayout::Numbers)
        bytes += bigEndian(static_cast<quint32>(header.*field.value));
    for (int word = 0; word < FcfLayout::ReservedWordCount; ++word)
        bytes += bigEndian(FcfLayout::ReservedWord);
    return bytes;
}

template <class Record, int Count>
QString lines(const FcfLayout::TextField<Record> (&fields)[Count], const Record& record)
{
    QString text;
    for (const FcfLayout::TextField<Record>& field : fields) {
        const QString value = record.*field.value;
        text += QLatin1String(field.prefix);
        text += field.whenWritten == FcfLayout::Trimmed ? value.trimmed() : value;
        text += QLatin1Char('\n');
    }
    text += QLatin1String(FcfLayout::RecordEnd);
    text += QLatin1Char('\n');
    return text;
}

/// Byte order marks are left out: the text begins inside the page.
QByteArray encode(QTextCodec* codec, const QString& text)
{
    const QScopedPointer<QTextEncoder> encoder(codec->makeEncoder(QTextCodec::IgnoreHeader));
    return encoder->fromUnicode(text);
}

} // namespace

FcfWriter::FcfWriter(QTextCodec* codec) : m_codec(codec ? codec : QTextCodec::codecForLocale()) {}

QByteArray FcfWriter::compose(const FcfHeader& header) const
{
    QString text(QLatin1Char('\n'));
    text += lines(FcfLayout::HeaderTexts, header);
    for (const FcfFunction& function : header.functions)
        text += lines(FcfLayout::FunctionTexts, function);
    text += QLatin1String(FcfLayout::TextEnd);
    text += QLatin1Char('\n');
    return preamble(header) + encode(m_codec, text);
}

QByteArray FcfWriter::fillerFor(int headerBytes) const
{
    const QByteArray unit =
        encode(m_codec, QString(reinterpret_cast<const QChar*>(FcfLayout::FillerUnit),
                                FcfLayout::FillerUnitLength));
    const int missing = FcfLayout::PageBytes - headerBytes;
    if (missing <= 0 || unit.isEmpty())
        return QByteArray();
    return unit.repeated((missing + unit.size() - 1) / unit.size());
}
