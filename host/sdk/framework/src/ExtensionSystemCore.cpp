#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>

#include <QtilitiesLogging/Logger.h>

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <QPluginLoader>
#include <QStringList>

namespace Qtilities {
namespace ExtensionSystem {

using Interfaces::IPlugin;
using Logging::Logger;

struct ExtensionSystemCore::Private {
    QStringList paths;
    /// Those whose initialize() has succeeded; finalize() is theirs.
    QList<IPlugin*> initializedPlugins;
    /// Those of them that can be used.
    QList<IPlugin*> startedPlugins;
    bool initialized;

    Private() : initialized(false) {}
};

namespace {

void reportError(const QString& text)
{
    Logger::instance()->logPriorityMessage(QString(), Logger::Error, text);
}

/// The plug-in in the library at \p path, or null after a report. The library stays loaded
/// until the process ends, whether or not the plug-in is used.
IPlugin* loadPlugin(const QString& path)
{
    QPluginLoader loader(path);
    QObject* const instance = loader.instance();
    if (!instance) {
        reportError(QString::fromLatin1("Cannot load plug-in \"%1\": %2")
                        .arg(QDir::toNativeSeparators(path), loader.errorString()));
        return nullptr;
    }
    IPlugin* const plugin = qobject_cast<IPlugin*>(instance);
    if (!plugin)
        reportError(QString::fromLatin1("Cannot use plug-in \"%1\": it does not implement %2")
                        .arg(QDir::toNativeSeparators(path),
                             QLatin1String(qobject_interface_iid<IPlugin*>())));
    return plugin;
}

QList<IPlugin*> loadPlugins(const QString& folder)
{
    QList<IPlugin*> plugins;
    const QDir dir(folder);
    foreach (const QString& name, dir.entryList(QDir::Files, QDir::Name)) {
        if (!QLibrary::isLibrary(name))
            continue;
        if (IPlugin* plugin = loadPlugin(dir.absoluteFilePath(name)))
            plugins.append(plugin);
    }
    return plugins;
}

void reportStartFailure(const IPlugin* plugin, const QStringList& reasons)
{
    reportError(QString::fromLatin1("Cannot start plug-in \"%1\": %2")
                    .arg(plugin->pluginName(), reasons.join(QLatin1String("; "))));
}

} // namespace

ExtensionSystemCore::ExtensionSystemCore() : d(new Private) {}

ExtensionSystemCore::~ExtensionSystemCore() { delete d; }

ExtensionSystemCore* ExtensionSystemCore::instance()
{
    static ExtensionSystemCore core;
    return &core;
}

void ExtensionSystemCore::addPluginPath(const QString& path)
{
    if (!d->paths.contains(path))
        d->paths.append(path);
}

void ExtensionSystemCore::initialize()
{
    if (d->initialized)
        return;
    d->initialized = true;

    QList<IPlugin*> loaded;
    foreach (const QString& path, d->paths)
        loaded += loadPlugins(path);

    foreach (IPlugin* plugin, loaded) {
        QStringList reasons;
        if (plugin->initialize(QCoreApplication::arguments(), &reasons)) {
            d->initializedPlugins.append(plugin);
        } else {
            reportStartFailure(plugin, reasons);
            delete plugin->objectBase();
        }
    }
    foreach (IPlugin* plugin, d->initializedPlugins) {
        QStringList reasons;
        if (plugin->initializeDependencies(&reasons))
            d->startedPlugins.append(plugin);
        else
            reportStartFailure(plugin, reasons);
    }
}

void ExtensionSystemCore::finalize()
{
    QList<IPlugin*> lastFirst;
    foreach (IPlugin* plugin, d->initializedPlugins)
        lastFirst.prepend(plugin);
    d->initializedPlugins.clear();
    d->startedPlugins.clear();
    d->initialized = false;

    foreach (IPlugin* plugin, lastFirst)
        plugin->finalize();
    foreach (IPlugin* plugin, lastFirst)
        delete plugin->objectBase();
}

IPlugin* ExtensionSystemCore::findPlugin(const QString& name) const
{
    foreach (IPlugin* plugin, d->startedPlugins) {
        if (plugin->pluginName() == name)
            return plugin;
    }
    return nullptr;
}

} // namespace ExtensionSystem
} // namespace Qtilities
