#ifndef HOST_APP_FILEICONS_H
#define HOST_APP_FILEICONS_H

#include <QIcon>

/// The icons of the design view: a page with a coloured label for the kinds of files that a design
/// has, which differ at a glance, and the style's own for everything else.
namespace FileIcons {

/// The icon of a file with the name \p fileName.
QIcon forFile(const QString& fileName);
QIcon forMissing();

/// Marks of states: for files that cannot be used, and for those that should be made again.
QIcon forInvalid();
QIcon forOutdated();

QIcon forNode();
QIcon forFolder();

} // namespace FileIcons

#endif
