#ifndef FCF_FCFLINESOURCE_H
#define FCF_FCFLINESOURCE_H

#include <QByteArray>
#include <QString>

class QIODevice;
class QTextCodec;

/// Hands out a device's first bytes as words and lines, and never takes more than a given number.
class FcfLineSource {
public:
    /// Neither \p device nor \p codec becomes the source's own.
    FcfLineSource(QIODevice* device, QTextCodec* codec, int maximumBytes);

    /// The next big-endian 32-bit word, or 0 when fewer than its four bytes are left.
    qint32 takeWord();

    /// Puts the next line, without its line feed or carriage return and line feed, into \p line.
    /// A last line need not be ended. Returns false, with \p line emptied, when nothing is left, or
    /// when the line goes on past the bound.
    bool takeLine(QString* line);

private:
    bool fetch();

    QIODevice* m_device;
    QTextCodec* m_codec;
    int m_allowance;
    QByteArray m_bytes;
    int m_position;
};

#endif
