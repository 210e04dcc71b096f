#include "tool/check/BitContainer.h"

namespace {

/// A container begins with a field of 9 bytes that is always the same, and the number of the keys
/// that the next two bytes hold. Then come the texts and the payload.
const QByteArray Magic = QByteArray::fromHex("00090ff00ff00ff00ff0000001");
/// How many of these bytes show that a file is a container, or was one before it was damaged.
constexpr int RecognisedBytes = 4;

// A field has a key of one byte, a length in big-endian byte order, and its content.
constexpr int KeyBytes = 1;
constexpr int TextLengthBytes = 2;
constexpr int PayloadLengthBytes = 4;
constexpr char FirstTextKey = 'a';
constexpr char PayloadKey = 'e';

template <class Value>
using OrFlaw = tl::expected<Value, QString>;

/// Reads one field after the other.
class FieldReader {
public:
    explicit FieldReader(const QByteArray& bytes) : m_bytes(bytes) {}

    int offset() const { return m_offset; }

    /// Passes the bytes that every container begins with.
    OrFlaw<void> magic()
    {
        const QByteArray found = m_bytes.left(Magic.size());
        if (!Magic.startsWith(found))
            return lacks("the right first bytes");
        if (found.size() < Magic.size())
            return isCut();

        m_offset = static_cast<int>(Magic.size());
        return {};
    }

    /// The text of the field \p key, up to its null byte.
    OrFlaw<QString> text(char key)
    {
        const OrFlaw<qint64> length = fieldLength(key, TextLengthBytes);
        if (!length)
            return tl::make_unexpected(length.error());
        if (m_offset + *length > m_bytes.size())
            return isCut();

        const int bytes = static_cast<int>(*length);
        const QByteArray text = m_bytes.mid(m_offset, bytes);
        m_offset += bytes;
        return QString::fromLatin1(text.left(text.indexOf('\0')));
    }

    /// The length that the field \p key has according to a number of \p lengthBytes bytes.
    OrFlaw<qint64> fieldLength(char key, int lengthBytes)
    {
        const int end = m_offset + KeyBytes + lengthBytes;
        if (m_offset < m_bytes.size() && m_bytes.at(m_offset) != key)
            return lacks(QStringLiteral("the field \"%1\"").arg(QLatin1Char(key)));
        if (end > m_bytes.size())
            return isCut();

        qint64 length = 0;
        for (int index = m_offset + KeyBytes; index < end; ++index)
            length = length * 256 + static_cast<uchar>(m_bytes.at(index));
        m_offset = end;
        return length;
    }

private:
    tl::unexpected<QString> isCut() const
    {
        return tl::make_unexpected(
            QStringLiteral("is a .bit container that is cut: it ends in its header, after %1 "
                           "bytes; copy or build it again")
                .arg(m_bytes.size()));
    }

    tl::unexpected<QString> lacks(const QString& expected) const
    {
        return tl::make_unexpected(
            QStringLiteral("is a .bit container with an unknown header: it lacks %1 at offset %2; "
                           "take the .bin file of the same build")
                .arg(expected)
                .arg(m_offset));
    }

    const QByteArray& m_bytes;
    int m_offset = 0;
};

} // namespace

bool BitContainer::isStartOf(const QByteArray& start)
{
    return start.startsWith(Magic.left(RecognisedBytes));
}

tl::expected<BitContainer, QString> BitContainer::read(const QByteArray& start)
{
    BitContainer container;
    FieldReader fields(start);
    if (const OrFlaw<void> magic = fields.magic(); !magic)
        return tl::make_unexpected(magic.error());

    char key = FirstTextKey;
    for (QString* const target :
         {&container.design, &container.part, &container.date, &container.time}) {
        const OrFlaw<QString> text = fields.text(key);
        if (!text)
            return tl::make_unexpected(text.error());

        *target = *text;
        ++key;
    }

    const OrFlaw<qint64> length = fields.fieldLength(PayloadKey, PayloadLengthBytes);
    if (!length)
        return tl::make_unexpected(length.error());

    container.payloadBytes = *length;
    container.headerBytes = fields.offset();
    return container;
}
