#ifndef HOST_APP_IMAGE_FILESTATE_H
#define HOST_APP_IMAGE_FILESTATE_H

#include <QStringList>

namespace OrvanticCore {
class DesignFile;
}

/// What the disk and the design say about a file of a design.
namespace FileState {

/// Why a generated file should be made again. Empty for one that is up to date, missing, or not
/// generated. Its source is the binary of the same name in the same folder.
QStringList reasonsOutdated(const OrvanticCore::DesignFile& file);

} // namespace FileState

#endif
