#ifndef HOST_APP_IMAGE_GENERATEDFILES_H
#define HOST_APP_IMAGE_GENERATEDFILES_H

#include <QList>
#include <QStringList>

struct ImageTarget;

namespace OrvanticCore {
class Design;
class DesignFile;
} // namespace OrvanticCore

/// What a design notes about the files of an image that was just made, as generators do.
namespace GeneratedFiles {

/// Adds the files at \p paths to \p design, unless they are in it, as generated files of its
/// current version below its node for bit-streams. Returns the files, but those that the design
/// refuses. The refusals are logged.
QList<OrvanticCore::DesignFile*> note(OrvanticCore::Design* design, const QStringList& paths);

/// Sets the target properties of \p design.
void noteTarget(OrvanticCore::Design* design, const ImageTarget& target);

} // namespace GeneratedFiles

#endif
