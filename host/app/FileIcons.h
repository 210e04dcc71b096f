#ifndef HOST_APP_FILEICONS_H
#define HOST_APP_FILEICONS_H

#include <QIcon>

/// The icons of the design view: the style's own, with a coloured label on those of files, by
/// which kinds differ at a glance.
namespace FileIcons {

/// For a file with that name.
QIcon forFile(const QString& fileName);
QIcon forMissing();
QIcon forNode();
QIcon forFolder();

} // namespace FileIcons

#endif
