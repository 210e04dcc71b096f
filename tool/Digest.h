#ifndef TOOL_DIGEST_H
#define TOOL_DIGEST_H

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

class QIODevice;

/// SHA-256 digests of images, in the files that sha256sum writes and checks.
namespace Digest {

/// Of a digest file nothing behind this is read.
constexpr int MaximumBytes = 64 * 1024;

/// Where the digest of the image at \p imagePath stands.
QString pathFor(const QString& imagePath);

/// The one line of a digest file: \p digest is binary, the name is that of \p imagePath.
QByteArray line(const QByteArray& digest, const QString& imagePath);

/// The binary digests that \p lines give for the name of \p imagePath, whatever its folder, or
/// where an image has no name, for any.
QList<QByteArray> find(const QByteArray& lines, const std::optional<QString>& imagePath);

/// The binary digest of all that is left in \p device, or nothing if it cannot be read.
std::optional<QByteArray> of(QIODevice* device);

} // namespace Digest

#endif
