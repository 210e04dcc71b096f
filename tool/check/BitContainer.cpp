#include "tool/check/BitContainer.h"

namespace {

/// A container begins with a field of 9 bytes that is always the same, and the number of the keys
/// that the next two bytes hold. Then come the texts and the payload.
const QByteArray Magic = QByteArray::fromHex("00090ff00ff00ff00ff0000001");

// A field has a key of one byte, a length in big-endian byte order, and its content.
constexpr int KeyBytes = 1;
constexpr int TextLengthBytes = 2;
constexpr int PayloadLengthBytes = 4;
constexpr char FirstTextKey = 'a';
constexpr char PayloadKey = 'e';

/// Reads one field after the other.
class FieldReader {
public:
    FieldReader(const QByteArray& bytes, int offset) : m_bytes(bytes), m_offset(offset) {}

    int offset() const { return m_offset; }

    /// The text of the field \p key, up to its null byte; nothing if another field is here or if it
    /// is not whole.
    std::optional<QString> text(char key)
    {
        const std::optional<qint64> length = fieldLength(key, TextLengthBytes);
        if (!length || m_offset + *length > m_bytes.size())
            return std::nullopt;

        const QByteArray text = m_bytes.mid(m_offset, static_cast<int>(*length));
        m_offset += text.size();
        return QString::fromLatin1(text.left(text.indexOf('\0')));
    }

    /// The length that the field \p key has according to a number of \p lengthBytes bytes.
    std::optional<qint64> fieldLength(char key, int lengthBytes)
    {
        const int end = m_offset + KeyBytes + lengthBytes;
        if (end > m_bytes.size() || m_bytes.at(m_offset) != key)
            return std::nullopt;

        qint64 length = 0;
        for (int index = m_offset + KeyBytes; index < end; ++index)
            length = length * 256 + static_cast<uchar>(m_bytes.at(index));
        m_offset = end;
        return length;
    }

private:
    const QByteArray& m_bytes;
    int m_offset;
};

} // namespace

bool BitContainer::isStartOf(const QByteArray& start)
{
    return start.startsWith(Magic + FirstTextKey);
}

std::optional<BitContainer> BitContainer::read(const QByteArray& start)
{
    if (!isStartOf(start))
        return std::nullopt;

    BitContainer container;
    FieldReader fields(start, Magic.size());
    char key = FirstTextKey;
    for (QString* const target :
         {&container.design, &container.part, &container.date, &container.time}) {
        const std::optional<QString> text = fields.text(key);
        if (!text)
            return std::nullopt;

        *target = *text;
        ++key;
    }

    const std::optional<qint64> length = fields.fieldLength(PayloadKey, PayloadLengthBytes);
    if (!length)
        return std::nullopt;

    container.payloadBytes = *length;
    container.headerBytes = fields.offset();
    return container;
}
