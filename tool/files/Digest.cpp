#include "tool/files/Digest.h"

#include "tool/files/FileSystem.h"

namespace {

/// A thread is not worth while for less.
constexpr int BackgroundBytes = 256 * 1024;

/// sha256sum marks a line in which a name is escaped with a backslash at its start.
QByteArray escaped(QByteArray name)
{
    return name.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
}

} // namespace

QString Digest::pathFor(const QString& imagePath) { return imagePath + ".sha256"; }

QByteArray Digest::line(const QByteArray& digest, const QString& imagePath)
{
    const QByteArray name = escaped(FileSystem::nameOf(imagePath));
    const QByteArray start = name == FileSystem::nameOf(imagePath) ? "" : "\\";
    return start + digest.toHex() + "  " + name + '\n';
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
