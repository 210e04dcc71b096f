#include "Digest.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QList>

namespace {

constexpr int HexDigits = 64;
constexpr int ChunkBytes = 1024 * 1024;

QByteArray encodedName(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).fileName());
}

/// sha256sum marks a line in which a name is escaped with a backslash at its start.
QByteArray escaped(QByteArray name) { return name.replace('\\', "\\\\"); }

} // namespace

QString Digest::pathFor(const QString& imagePath) { return imagePath + QStringLiteral(".sha256"); }

QByteArray Digest::line(const QByteArray& digest, const QString& imagePath)
{
    const QByteArray name = encodedName(imagePath);
    const QByteArray start = name.contains('\\') ? "\\" : "";
    return start + digest.toHex() + "  " + escaped(name) + '\n';
}

std::optional<QByteArray> Digest::find(const QByteArray& lines, const QString& imagePath)
{
    const QByteArray name = encodedName(imagePath);
    for (QByteArray line : lines.split('\n')) {
        const bool escapes = line.startsWith('\\');
        if (escapes)
            line.remove(0, 1);
        const QByteArray mark = line.mid(HexDigits, 2);
        if (mark != "  " && mark != " *")
            continue;
        const QByteArray digest = QByteArray::fromHex(line.left(HexDigits));
        const bool isDigest = digest.toHex() == line.left(HexDigits).toLower();
        if (isDigest && line.mid(HexDigits + 2) == (escapes ? escaped(name) : name))
            return digest;
    }
    return std::nullopt;
}

std::optional<QByteArray> Digest::of(QIODevice* device)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QByteArray chunk(ChunkBytes, Qt::Uninitialized);
    for (;;) {
        const qint64 count = device->read(chunk.data(), chunk.size());
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return hash.result();
        hash.addData(chunk.constData(), static_cast<int>(count));
    }
}
