#ifndef TESTS_SUPPORT_LOADEDPLUGIN_H
#define TESTS_SUPPORT_LOADEDPLUGIN_H

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QList>
#include <QPluginLoader>
#include <QPointer>
#include <QWidget>

/// The plug-in as the toolkit loads it from its library, with nothing left of the one before.
class LoadedPlugin {
public:
    /// \p library is the file. Nothing is loaded yet.
    explicit LoadedPlugin(const QString& library) : m_loader(library) {}

    /// Asks the library for its instance, which is a new one after end().
    Qtilities::ExtensionSystem::Interfaces::IPlugin* load();

    /// Loads and initializes it.
    void start();

    /// Deletes what the plug-in has left to the end of the process: its windows, the objects in the
    /// pool, and its instance; then the menus.
    void end();

    /// The one object of the pool that a cast to \p Interface accepts.
    template <typename Interface>
    static Interface* pooled()
    {
        const QList<QObject*> objects = registered(qobject_interface_iid<Interface*>());
        if (objects.count() != 1)
            qFatal("%d objects in the pool", int(objects.count()));
        return qobject_cast<Interface*>(objects.first());
    }

    /// All generator windows, in no order.
    static QList<QWidget*> generatorWindows();

    /// Lets events run until \p window is the active one, for some seconds at most.
    static void waitUntilActive(const QWidget* window);

private:
    static QList<QObject*> registered(const char* identifier);

    QPluginLoader m_loader;
    QPointer<QObject> m_instance;
};

#endif
