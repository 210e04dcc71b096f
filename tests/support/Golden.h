#ifndef TESTS_SUPPORT_GOLDEN_H
#define TESTS_SUPPORT_GOLDEN_H

#include <QByteArray>
#include <QString>
#include <QVector>

/// The expected bytes of a file, written down field by field so that a person can read them.
///
/// Each line of a golden file is a field's name and its bytes: as hexadecimal digits, with an
/// optional " * COUNT" behind them, or as quoted text in UTF-8, in which \n, \" and \\ mean the
/// usual. A field that is always in the same place has its offset in front. The last line has no
/// bytes, and the length in front. Lines with # are comments.
class Golden {
public:
    /// Ends the test program when the file is missing or contradicts its own offsets.
    explicit Golden(const QString& path);

    QByteArray bytes() const { return m_bytes; }

    /// The first field in which \p actual differs, with its offset and both values; empty for none.
    QString difference(const QByteArray& actual) const;

private:
    struct Field {
        int offset;
        QString name;
        QByteArray bytes;
    };

    QVector<Field> m_fields;
    QByteArray m_bytes;
};

#endif
