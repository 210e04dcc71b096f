#ifndef FCF_FCFLINESOURCE_H
#define FCF_FCFLINESOURCE_H

#include <QByteArray>
#include <QString>

class QIODevice;
class QTextCodec;

/// Hands out a device's first bytes as words and lines, and never takes more than a given number.
class FcfLineSource {
public:
    /// What ends a line, and is left out of it.
    enum LineEnd { LineFeed, LineFeedWithOrWithoutReturn };

    /// Neither \p device nor \p codec becomes the source's own.
    FcfLineSource(QIODevice* device, QTextCodec* codec, int maximumBytes, LineEnd lineEnd);

    /// The next big-endian 32-bit word, or 0 when fewer than its four bytes are left.
    qint32 takeWord();

    /// Puts the next line, without its end, into \p line. A last line need not be ended. Returns
    /// false, with \p line emptied, when nothing is left, or when the line goes on past the bound.
    bool takeLine(QString* line);

    /// Bytes handed out so far, line ends included.
    int position() const { return m_position; }

    /// Of the line taken last: its offset in bytes from the first byte handed out, whether its end
    /// was there, and whether the codec knew all of its bytes.
    int lineOffset() const { return m_lineOffset; }
    bool lineIsEnded() const { return m_lineIsEnded; }
    bool lineIsDecodable() const { return m_lineIsDecodable; }

private:
    bool fetch();

    QIODevice* m_device;
    QTextCodec* m_codec;
    int m_allowance;
    QByteArray m_bytes;
    int m_position;
    LineEnd m_lineEnd;
    int m_lineOffset;
    bool m_lineIsEnded;
    bool m_lineIsDecodable;
};

#endif
