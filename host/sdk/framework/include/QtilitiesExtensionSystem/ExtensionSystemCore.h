#ifndef QTILITIESEXTENSIONSYSTEM_EXTENSIONSYSTEMCORE_H
#define QTILITIESEXTENSIONSYSTEM_EXTENSIONSYSTEMCORE_H

#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>

namespace Qtilities {
namespace ExtensionSystem {

/// Finds, starts and stops the plug-ins. Made on first use, lives until the process ends.
class QTILITIES_SHARED_EXPORT ExtensionSystemCore : public QObject {
    Q_OBJECT

public:
    static ExtensionSystemCore* instance();

    /// Adds a folder to search. Folders are searched in the order in which they were added, the
    /// libraries of one in the order of their names.
    void addPluginPath(const QString& path);

    /// Loads every library of the plug-in folders that has an IPlugin in it, then calls
    /// initialize() on each and initializeDependencies() on each that initialize() returned true
    /// for. What cannot be loaded or does not start is reported to the logger by name and reason;
    /// the others go on. A plug-in that fails in initialize() is deleted at once. A second call
    /// does nothing until finalize() has run.
    void initialize();

    /// Calls finalize() on each plug-in that was initialized, the last one first, and then deletes
    /// them.
    void finalize();

    /// The plug-in with that name, if both its initialize() and initializeDependencies() returned
    /// true; else null. It stays the extension system's.
    Interfaces::IPlugin* findPlugin(const QString& name) const;

private:
    ExtensionSystemCore();
    ~ExtensionSystemCore() override;
    Q_DISABLE_COPY(ExtensionSystemCore)

    struct Private;
    Private* d;
};

} // namespace ExtensionSystem
} // namespace Qtilities

#endif
