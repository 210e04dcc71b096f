#ifndef HOST_APP_PLUGINLIST_H
#define HOST_APP_PLUGINLIST_H

#include <QStringList>

class QWidget;

/// The plug-ins in the folders that the host was started with.
namespace PluginList {

/// Logs an error for each of \p folders that does not exist, and a warning when none of them has a
/// library.
void logMissing(const QStringList& folders);

/// Shows what each plug-in in \p folders reports of itself, until the user closes the box.
void showAbout(const QStringList& folders, QWidget* parent);

} // namespace PluginList

#endif
