#ifndef TOOL_FILES_DIGEST_H
#define TOOL_FILES_DIGEST_H

#include "tool/files/Copy.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

/// SHA-256 digests of images, in the files that sha256sum writes and checks.
namespace Digest {

/// Of a digest file nothing behind this is read.
constexpr int MaximumBytes = 64 * 1024;

/// The path of the digest of the image at \p imagePath.
QString pathFor(const QString& imagePath);

/// The one line of a digest file: \p digest is binary, the name is that of \p imagePath.
QByteArray line(const QByteArray& digest, const QString& imagePath);

/// The binary digests that \p lines give for the name of \p imagePath, whatever its folder, or
/// where an image has no name, for any.
QList<QByteArray> find(const QByteArray& lines, const std::optional<QString>& imagePath);

/// Takes the digest of bytes that come in parts.
class Hash {
public:
    Hash();
    ~Hash();
    Hash(const Hash&) = delete;
    Hash& operator=(const Hash&) = delete;

    void add(const char* data, qint64 bytes);
    /// The binary digest of all that was added. Ends the adding.
    QByteArray result();

private:
    struct Context;
    std::unique_ptr<Context> m_context;
};

/// The binary digest of all of \p region. Calls \p observe for each part.
Result<QByteArray> of(const Region& region, const CopyObserver& observe);

} // namespace Digest

#endif
