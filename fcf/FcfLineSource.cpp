#include "fcf/FcfLineSource.h"

#include "fcf/FcfLayout.h"

#include <QIODevice>
#include <QtEndian>
#include <QTextCodec>

namespace {

/// Bytes read from the device at a time. No more than a page, since a payload may follow it.
const int FetchBytes = FcfLayout::PageBytes;

} // namespace

FcfLineSource::FcfLineSource(QIODevice* device, QTextCodec* codec, int maximumBytes,
                             LineEnd lineEnd)
    : m_device(device), m_codec(codec ? codec : QTextCodec::codecForLocale()),
      m_allowance(maximumBytes), m_dropped(0), m_position(0), m_lineEnd(lineEnd), m_isAtEnd(false),
      m_hasFailed(false), m_lineOffset(0), m_lineIsEnded(false), m_lineIsDecodable(true)
{
}

qint32 FcfLineSource::takeWord()
{
    while (fetchedBytes() - m_position < FcfLayout::WordBytes && fetch()) {
    }
    if (fetchedBytes() - m_position < FcfLayout::WordBytes) {
        m_position = fetchedBytes();
        return 0;
    }

    const uchar* const word = reinterpret_cast<const uchar*>(m_bytes.constData()) + m_position;
    m_position += FcfLayout::WordBytes;
    return qFromBigEndian<qint32>(word);
}

QString FcfLineSource::takeLine()
{
    m_lineOffset = position();
    int end = lineFeedFrom(m_position);
    while (end < 0) {
        const int searched = fetchedBytes() - m_position;
        if (!fetch())
            break;
        end = lineFeedFrom(searched);
    }

    m_lineIsEnded = end >= 0;
    if (!m_lineIsEnded) {
        end = fetchedBytes();
        m_isAtEnd = m_position == end || m_allowance == 0;
        if (m_isAtEnd)
            return QString();
    }

    int length = end - m_position;
    if (m_lineIsEnded && m_lineEnd == LineFeedWithOrWithoutReturn && length > 0 &&
        m_bytes.at(end - 1) == '\r')
        --length;

    if (length == 0) {
        // A codec takes longer to convert nothing, and a hostile text has millions of empty lines.
        m_lineIsDecodable = true;
        m_position = m_lineIsEnded ? end + 1 : end;
        return QString();
    }

    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QString line = m_codec->toUnicode(m_bytes.constData() + m_position, length, &state);
    m_lineIsDecodable = state.invalidChars == 0 && state.remainingChars == 0;
    m_position = m_lineIsEnded ? end + 1 : end;
    return line;
}

int FcfLineSource::lineFeedFrom(int position) const
{
    return static_cast<int>(m_bytes.indexOf('\n', position));
}

/// Drops what was taken, since a text may be long, so that the position is 0 afterwards.
bool FcfLineSource::fetch()
{
    m_bytes.remove(0, m_position);
    m_dropped += m_position;
    m_position = 0;

    QByteArray more(qMin(FetchBytes, m_allowance), Qt::Uninitialized);
    const qint64 count = m_device->read(more.data(), more.size());
    if (count < 0)
        m_hasFailed = true;
    if (count <= 0)
        return false;

    const int fetched = static_cast<int>(count);
    more.truncate(fetched);
    m_allowance -= fetched;
    m_bytes += more;
    return true;
}
