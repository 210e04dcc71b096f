#ifndef TOOL_FILES_DIGEST_H
#define TOOL_FILES_DIGEST_H

#include "tool/files/Region.h"

#include <QByteArray>
#include <QString>

#include <nettle/sha2.h>

#include <future>
#include <vector>

/// SHA-256 digests of images, and the files that sha256sum checks.
namespace Digest {

/// The path of the digest of the image at \p imagePath.
QString pathFor(const QString& imagePath);

/// The one line of a digest file: \p digest is binary, the name is that of \p imagePath.
QByteArray line(const QByteArray& digest, const QString& imagePath);

/// Takes the digest of bytes that come in parts. A second thread works on what came before, while
/// the caller reads and writes what follows.
class Hash {
public:
    Hash() { nettle_sha256_init(&m_state); }
    Q_DISABLE_COPY(Hash)

    void add(const char* data, qint64 bytes);
    /// The binary digest of all that was added. Nothing can be added afterwards.
    QByteArray result();

private:
    void hash(const std::vector<char>& part);

    sha256_ctx m_state;
    std::vector<char> m_next;
    std::vector<char> m_inWork;
    /// It uses both of the above, so it must be destroyed first.
    std::future<void> m_work;
};

/// The binary digest of all of \p region. Calls \p observe for each part.
Result<QByteArray> of(const Region& region, const CopyObserver& observe);

} // namespace Digest

#endif
