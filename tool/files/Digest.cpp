#include "tool/files/Digest.h"

#include "tool/files/FileSystem.h"

namespace {

constexpr int HexDigits = 64;
/// A thread is not worth while for less.
constexpr int BackgroundBytes = 256 * 1024;

/// sha256sum marks a line in which a name is escaped with a backslash at its start.
QByteArray escaped(QByteArray name)
{
    return name.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
}

struct Line {
    QByteArray digest;
    /// The name as it is written in the line, without folders.
    QByteArray name;
    bool isEscaped = false;
};

/// The text without the carriage return that editors on other systems leave at its end.
QByteArray withoutReturn(const QByteArray& text)
{
    return text.endsWith('\r') ? text.chopped(1) : text;
}

/// Either form of sha256sum: "DIGEST  NAME", or with --tag "SHA256 (NAME) = DIGEST".
std::optional<Line> parsed(QByteArray text)
{
    static const QByteArray tag = "SHA256 (";
    static const QByteArray tagEnd = ") = ";

    Line line;
    text = withoutReturn(text);
    line.isEscaped = text.startsWith('\\');
    if (line.isEscaped)
        text.remove(0, 1);

    QByteArray digits = text.left(HexDigits);
    const QByteArray separator = text.mid(HexDigits, 2);
    const int nameEnd = text.lastIndexOf(tagEnd);
    if (text.startsWith(tag) && nameEnd > 0) {
        digits = text.mid(nameEnd + tagEnd.size());
        line.name = text.mid(tag.size(), nameEnd - tag.size());
    } else if (separator == "  " || separator == " *") {
        line.name = text.mid(HexDigits + separator.size());
    }

    line.name = line.name.mid(line.name.lastIndexOf('/') + 1);
    line.digest = QByteArray::fromHex(digits);
    const bool isDigest = digits.size() == HexDigits && line.digest.toHex() == digits.toLower();
    if (!isDigest || line.name.isEmpty())
        return std::nullopt;
    return line;
}

} // namespace

QString Digest::pathFor(const QString& imagePath) { return imagePath + ".sha256"; }

QByteArray Digest::line(const QByteArray& digest, const QString& imagePath)
{
    const QByteArray name = escaped(FileSystem::nameOf(imagePath));
    const QByteArray start = name == FileSystem::nameOf(imagePath) ? "" : "\\";
    return start + digest.toHex() + "  " + name + '\n';
}

QList<QByteArray> Digest::find(const QByteArray& lines, const std::optional<QString>& imagePath)
{
    const QByteArray name = imagePath ? FileSystem::nameOf(*imagePath) : QByteArray();

    QList<QByteArray> digests;
    for (const QByteArray& text : lines.split('\n')) {
        const std::optional<Line> line = parsed(text);
        if (!line)
            continue;
        if (!imagePath || line->name == (line->isEscaped ? escaped(name) : name))
            digests << line->digest;
    }
    return digests;
}

bool Digest::isDigest(const QByteArray& lines)
{
    const QByteArray line = lines.trimmed();
    return !line.contains('\n') && parsed(line).has_value();
}

void Digest::Hash::add(const char* data, qint64 bytes)
{
    m_next.insert(m_next.end(), data, data + bytes);
    if (m_next.size() < BackgroundBytes)
        return;

    if (m_work.valid())
        m_work.get();
    m_inWork.swap(m_next);
    m_next.clear();
    m_work = std::async(std::launch::async, [this] { hash(m_inWork); });
}

QByteArray Digest::Hash::result()
{
    if (m_work.valid())
        m_work.get();
    hash(m_next);

    QByteArray digest(SHA256_DIGEST_SIZE, Qt::Uninitialized);
    nettle_sha256_digest(&m_state, SHA256_DIGEST_SIZE, reinterpret_cast<uint8_t*>(digest.data()));
    return digest;
}

void Digest::Hash::hash(const std::vector<char>& part)
{
    nettle_sha256_update(&m_state, part.size(), reinterpret_cast<const uint8_t*>(part.data()));
}

Result<QByteArray> Digest::of(const Region& region, const CopyObserver& observe)
{
    Hash hash;
    const Status read = readAll(region, [&](const char* data, qint64 bytes) {
        hash.add(data, bytes);
        observe(data, bytes);
    });
    if (!read)
        return tl::unexpected<Finding>(read.error());

    return hash.result();
}
