#ifndef FCF_FCFLINESOURCE_H
#define FCF_FCFLINESOURCE_H

#include <QByteArray>
#include <QString>

class QIODevice;
class QTextCodec;

/// Reads a device's first bytes as words and lines, and never more than a given number.
class FcfLineSource {
public:
    /// The mark that ends a line. It is not part of the line.
    enum LineEnd { LineFeed, LineFeedWithOrWithoutReturn };

    /// A null \p codec means the locale's. Neither is owned.
    FcfLineSource(QIODevice* device, QTextCodec* codec, int maximumBytes, LineEnd lineEnd);

    /// The next big-endian 32-bit word, or 0 when fewer than its four bytes are left.
    qint32 takeWord();

    /// The next line, without its end. The last line need not be ended. Empty, and isAtEnd() from
    /// now on, when nothing is left or when the line goes on past the bound.
    QString takeLine();

    /// Whether the last takeLine() found no line.
    bool isAtEnd() const { return m_isAtEnd; }

    /// Bytes that may still be read from the device. At 0, the end is that of the bound.
    int allowance() const { return m_allowance; }
    void limitTo(int bytes) { m_allowance = qMin(m_allowance, bytes); }

    /// Whether the device could not be read, in place of ending.
    bool hasFailed() const { return m_hasFailed; }

    /// Bytes taken so far, line ends included.
    int position() const { return m_dropped + m_position; }

    /// The offset of the line taken last, in bytes from the first byte read.
    int lineOffset() const { return m_lineOffset; }

    /// Whether the end of that line was there, and whether the codec could decode all of it.
    bool lineIsEnded() const { return m_lineIsEnded; }
    bool lineIsDecodable() const { return m_lineIsDecodable; }

private:
    bool fetch();

    /// No more than the bound, so that an int holds it.
    int fetchedBytes() const { return static_cast<int>(m_bytes.size()); }
    /// The place of the next line feed from \p position on in what was fetched, or -1.
    int lineFeedFrom(int position) const;

    QIODevice* m_device;
    QTextCodec* m_codec;
    int m_allowance;
    /// The bytes fetched last. Those before them were taken and dropped; the position is counted
    /// from the start of this one.
    QByteArray m_bytes;
    int m_dropped;
    int m_position;
    LineEnd m_lineEnd;
    bool m_isAtEnd;
    bool m_hasFailed;
    int m_lineOffset;
    bool m_lineIsEnded;
    bool m_lineIsDecodable;
};

#endif
