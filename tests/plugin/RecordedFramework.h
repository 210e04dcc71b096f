#ifndef TESTS_PLUGIN_RECORDEDFRAMEWORK_H
#define TESTS_PLUGIN_RECORDEDFRAMEWORK_H

#include <QAction>
#include <QList>
#include <QPointer>
#include <QStringList>

/// A framework in place of that of the libraries, for the plug-in too, which notes what it is
/// asked.
namespace RecordedFramework {

/// What the framework was asked for, in order. The caller may clear it.
QStringList& calls();

/// What is in the object pool, in the order of registration.
QList<QObject*> pool();

/// The action of the command "Tools.FcfGenerator", or null.
QAction* command();

/// Forgets the command.
void reset();

} // namespace RecordedFramework

#endif
