#ifndef HOST_APP_DESIGNSTORAGE_H
#define HOST_APP_DESIGNSTORAGE_H

#include <QByteArray>
#include <QString>

#include <memory>

namespace OrvanticCore {
class Design;
}

/// Keeps each design as a readable description in the design's folder. Each HostError names the
/// file, the place in it and the reason.
namespace DesignStorage {

QString descriptionPath(const QString& folder);
bool hasDescription(const QString& folder);

/// The design in \p folder, unmodified. Changes nothing on the disk. Throws a HostError.
std::unique_ptr<OrvanticCore::Design> load(const QString& folder);

/// The description of \p design as save() writes it.
QByteArray text(const OrvanticCore::Design& design);

/// Replaces the description as a whole or, with a HostError, not at all. The design is unmodified
/// afterwards. Whatever is there is replaced: see isChangedOnDisk().
void save(OrvanticCore::Design* design);

/// Whether there is another description on the disk than the one that load() read or save() wrote
/// last, or one that cannot be read.
bool isChangedOnDisk(const OrvanticCore::Design& design);

/// Looks whether the description can be replaced, and notes in \p design when it cannot.
void refreshReadOnly(OrvanticCore::Design* design);

} // namespace DesignStorage

#endif
