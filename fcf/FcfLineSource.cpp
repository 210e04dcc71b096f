#include "FcfLineSource.h"

#include "FcfLayout.h"

#include <QIODevice>
#include <QtEndian>
#include <QTextCodec>

namespace {

/// Holds nearly every header page; a payload behind it is hardly touched.
const int FetchBytes = 4096;

} // namespace

FcfLineSource::FcfLineSource(QIODevice* device, QTextCodec* codec, int maximumBytes)
    : m_device(device), m_codec(codec), m_allowance(maximumBytes), m_position(0)
{
}

qint32 FcfLineSource::takeWord()
{
    while (m_bytes.size() - m_position < FcfLayout::WordBytes && fetch()) {
    }
    if (m_bytes.size() - m_position < FcfLayout::WordBytes) {
        m_position = m_bytes.size();
        return 0;
    }
    const uchar* const word = reinterpret_cast<const uchar*>(m_bytes.constData()) + m_position;
    m_position += FcfLayout::WordBytes;
    return qFromBigEndian<qint32>(word);
}

bool FcfLineSource::takeLine(QString* line)
{
    line->clear();
    int end = m_bytes.indexOf('\n', m_position);
    for (int searched = m_bytes.size(); end < 0 && fetch(); searched = m_bytes.size())
        end = m_bytes.indexOf('\n', searched);

    const bool ended = end >= 0;
    if (!ended) {
        end = m_bytes.size();
        if (m_position == end || m_allowance == 0)
            return false;
    }
    int length = end - m_position;
    if (ended && length > 0 && m_bytes.at(end - 1) == '\r')
        --length;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    *line = m_codec->toUnicode(m_bytes.constData() + m_position, length, &state);
    m_position = ended ? end + 1 : end;
    return true;
}

bool FcfLineSource::fetch()
{
    const QByteArray more = m_device->read(qMin(FetchBytes, m_allowance));
    m_allowance -= more.size();
    m_bytes += more;
    return !more.isEmpty();
}
