#ifndef TESTS_E2E_ENDTOENDPLUGIN_H
#define TESTS_E2E_ENDTOENDPLUGIN_H

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>

/// A second plug-in, which acts as the user of the host: once all plug-ins have started it runs the
/// scenario, and ends the host with exit code 0 if every step succeeded, else with 1.
class EndToEndPlugin : public QObject, public Qtilities::ExtensionSystem::Interfaces::IPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")

public:
    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    bool initialize(const QStringList& arguments, QStringList* error_strings) override;
    bool initializeDependencies(QStringList* error_strings) override;
    void finalize() override {}

    QString pluginName() const override { return "End to end"; }
    Qtilities::Core::QtilitiesCategory pluginCategory() const override { return {"Tests"}; }
    Qtilities::Core::VersionInformation pluginVersionInformation() const override { return {1}; }
    QString pluginPublisher() const override { return "ZORV"; }
    QString pluginPublisherWebsite() const override { return {}; }
    QString pluginPublisherContact() const override { return {}; }
    QString pluginDescription() const override { return "Drives the host through its windows."; }
    QString pluginCopyright() const override { return {}; }
    QString pluginLicense() const override { return {}; }

private:
    void runScenario();
};

#endif
