#ifndef PLUGIN_ZORV_PLUGIN_CORE_H
#define PLUGIN_ZORV_PLUGIN_CORE_H

#include "toolkit/QtDifferences.h"

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>

namespace ZORV_Plugin {

using Qtilities::ExtensionSystem::Interfaces::IPlugin;

struct ZORV_Plugin_CoreData;

/// The plug-in, as the host sees it.
///
/// Whatever it makes for the host (the objects in the pool, the command, the generator window) it
/// never deletes: the host may use it until the process ends.
class ZORV_Plugin_Core : public QObject, public IPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    ZORV_PLUGIN_METADATA

public:
    explicit ZORV_Plugin_Core(QObject* parent = nullptr);
    ~ZORV_Plugin_Core() override;

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    /// Registers the extensions for designs in the object pool, and adds "Pelk FCF Generator" to
    /// the Tools menu. Takes no arguments and reports no errors.
    bool initialize(const QStringList& arguments, QStringList* error_strings) override;
    bool initializeDependencies(QStringList* error_strings) override;
    void finalize() override;

    QString pluginName() const override;
    Qtilities::Core::QtilitiesCategory pluginCategory() const override;
    Qtilities::Core::VersionInformation pluginVersionInformation() const override;
    QString pluginPublisher() const override;
    QString pluginPublisherWebsite() const override;
    QString pluginPublisherContact() const override;
    QString pluginDescription() const override;
    QString pluginCopyright() const override;
    QString pluginLicense() const override;

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
