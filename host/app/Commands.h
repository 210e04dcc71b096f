#ifndef HOST_APP_COMMANDS_H
#define HOST_APP_COMMANDS_H

#include <QKeySequence>
#include <QStyle>

#include <functional>

class QAction;
class QMenu;

/// The host's own commands in the menus that plug-ins add to as well.
namespace Commands {

/// The menu with that identifier, which must exist.
QMenu* menu(const QString& id);

/// Adds a command to the menu that \p id begins with, as "File" in "File.Quit". It calls \p slot
/// for as long as \p receiver lives. For drivers: the object name of the action is \p id.
QAction* add(const QString& id, const QString& text, const QKeySequence& shortcut,
             QObject* receiver, const std::function<void()>& slot);

QIcon icon(QStyle::StandardPixmap pixmap);

} // namespace Commands

#endif
