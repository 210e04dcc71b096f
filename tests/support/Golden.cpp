#include "support/Golden.h"

#include <QFile>

namespace {

QByteArray unquoted(const QByteArray& quoted)
{
    QByteArray text;
    for (int i = 1; i < quoted.size() - 1; ++i) {
        if (quoted.at(i) != '\\') {
            text += quoted.at(i);
            continue;
        }
        ++i;
        text += quoted.at(i) == 'n' ? '\n' : quoted.at(i);
    }
    return text;
}

QByteArray bytesOf(const QByteArray& value)
{
    if (value.startsWith('"'))
        return unquoted(value);
    const int times = value.indexOf(" * ");
    if (times < 0)
        return QByteArray::fromHex(value);
    return QByteArray::fromHex(value.left(times)).repeated(value.mid(times + 3).toInt());
}

QString shown(const QByteArray& bytes)
{
    constexpr int ShownBytes = 48;
    const QByteArray start = bytes.left(ShownBytes);
    return QString::fromLatin1(start.toHex()) + " \"" + QString::fromUtf8(start) + '"' +
           (bytes.size() > ShownBytes ? QString(" ... (%1 bytes)").arg(bytes.size()) : QString());
}

} // namespace

Golden::Golden(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no golden file %s", qPrintable(path));
    for (const QByteArray& row : file.readAll().split('\n')) {
        if (row.isEmpty() || row.startsWith('#'))
            continue;

        QList<QByteArray> words = row.split(' ');
        bool hasOffset = false;
        const int offset = words.at(0).toInt(&hasOffset);
        if (hasOffset)
            words.removeFirst();

        const QByteArray name = words.takeFirst();
        QByteArray value;
        for (const QByteArray& word : words)
            value += value.isEmpty() ? word : ' ' + word;
        const Field field{int(m_bytes.size()), name, bytesOf(value)};
        if (hasOffset && field.offset != offset)
            qFatal("%s: %s begins at byte %d, not %d", qPrintable(path), qPrintable(field.name),
                   field.offset, offset);
        m_fields.append(field);
        m_bytes += field.bytes;
    }
}

QString Golden::difference(const QByteArray& actual) const
{
    for (const Field& field : m_fields) {
        const QByteArray found = actual.mid(field.offset, field.bytes.size());
        if (found != field.bytes)
            return QString("%1 at byte %2: expected %3, found %4")
                .arg(field.name)
                .arg(field.offset)
                .arg(shown(field.bytes), shown(found));
    }
    if (actual.size() != m_bytes.size())
        return QString("length: expected %1, found %2").arg(m_bytes.size()).arg(actual.size());
    return {};
}
