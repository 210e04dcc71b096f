#ifndef HOST_APP_ARCHIVE_ARCHIVEFORMAT_H
#define HOST_APP_ARCHIVE_ARCHIVEFORMAT_H

#include <QList>
#include <QString>

enum class ArchiveFormat { Zip, TarGz };

namespace ArchiveFormats {

/// All formats in the order in which the user is offered them.
QList<ArchiveFormat> all();

/// The file extension, without the first dot.
QString extension(ArchiveFormat format);

/// The format's name for the user, which is a filter of file dialogs too.
QString label(ArchiveFormat format);

} // namespace ArchiveFormats

#endif
