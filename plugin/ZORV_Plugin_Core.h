#ifndef PLUGIN_ZORV_PLUGIN_CORE_H
#define PLUGIN_ZORV_PLUGIN_CORE_H

#include "plugin/PluginExport.h"

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>

namespace ZORV_Plugin {

using Qtilities::ExtensionSystem::Interfaces::IPlugin;

struct ZORV_Plugin_CoreData;

/// The plug-in, as the host sees it.
///
/// Whatever it makes for the host (the objects in the pool, the command, the generator window) it
/// never deletes: the host may hold on to it until the process ends.
class ZORV_Plugin_Core : public QObject, public IPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    ZORV_PLUGIN_METADATA

public:
    explicit ZORV_Plugin_Core(QObject* parent = 0);
    ~ZORV_Plugin_Core();

    QObject* objectBase() { return this; }
    const QObject* objectBase() const { return this; }

    /// Registers the extensions for designs in the object pool, and adds "Pelk FCF Generator" to
    /// the Tools menu. Takes no arguments and reports no errors.
    bool initialize(const QStringList& arguments, QStringList* error_strings);
    bool initializeDependencies(QStringList* error_strings);
    void finalize();

    QString pluginName() const;
    Qtilities::Core::QtilitiesCategory pluginCategory() const;
    Qtilities::Core::VersionInformation pluginVersionInformation() const;
    QString pluginPublisher() const;
    QString pluginPublisherWebsite() const;
    QString pluginPublisherContact() const;
    QString pluginDescription() const;
    QString pluginCopyright() const;
    QString pluginLicense() const;

private Q_SLOTS:
    /// Brings the one generator window of the Tools menu to the front; makes it when first asked.
    void showFcfGenerator();

private:
    void registerExtensions();
    void addGeneratorToToolsMenu();

    ZORV_Plugin_CoreData* d;
};

} // namespace ZORV_Plugin

#endif
