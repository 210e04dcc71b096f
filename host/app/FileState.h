#ifndef HOST_APP_FILESTATE_H
#define HOST_APP_FILESTATE_H

#include <QStringList>

namespace OrvanticCore {
class DesignFile;
}

/// What the disk and the design together say about a file of a design.
namespace FileState {

/// Why a generated file should be made again; empty for one that is up to date, missing, or not
/// generated. Its source is the binary of the same name in the same folder.
QStringList reasonsOutdated(const OrvanticCore::DesignFile& file);

/// The words of the column State: "Generated", "Outdated", "Missing".
QStringList words(const OrvanticCore::DesignFile& file);

/// Path, size, date and reasons, as rich text.
QString toolTip(const OrvanticCore::DesignFile& file);

} // namespace FileState

#endif
