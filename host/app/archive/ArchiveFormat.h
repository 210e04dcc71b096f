#ifndef HOST_APP_ARCHIVE_ARCHIVEFORMAT_H
#define HOST_APP_ARCHIVE_ARCHIVEFORMAT_H

#include <QList>
#include <QString>

#include <optional>

enum class ArchiveFormat { Zip, TarGz };

namespace ArchiveFormats {

/// In the order in which the user is offered them.
QList<ArchiveFormat> all();

/// The file extension, without the first dot.
QString extension(ArchiveFormat format);

/// The format's name for the user, which is a filter of file dialogs too.
QString label(ArchiveFormat format);

} // namespace ArchiveFormats

/// What the dialog's controls make of a destination path. An empty path stays empty.
namespace ArchivePath {

/// The format whose extension \p path has, in letters of either case.
std::optional<ArchiveFormat> formatOf(const QString& path);

/// \p path with the extension of \p format in place of that of another format. One that has the
/// extension of no format keeps what it has.
QString withFormat(const QString& path, ArchiveFormat format);

/// \p path with \p suffix in front of its format's extension, once, or with none there.
QString withSuffix(const QString& path, const QString& suffix, bool present);

} // namespace ArchivePath

#endif
