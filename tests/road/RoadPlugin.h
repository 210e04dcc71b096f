#ifndef TESTS_ROAD_ROADPLUGIN_H
#define TESTS_ROAD_ROADPLUGIN_H

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>

/// A second plug-in, which takes the place of the person at the host: once all plug-ins have
/// started it drives the road from the menu to the written image, and ends the host with 0 when
/// everything was as it should be.
class RoadPlugin : public QObject, public Qtilities::ExtensionSystem::Interfaces::IPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")

public:
    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    bool initialize(const QStringList& arguments, QStringList* error_strings) override;
    bool initializeDependencies(QStringList* error_strings) override;
    void finalize() override {}

    QString pluginName() const override { return "Road"; }
    Qtilities::Core::QtilitiesCategory pluginCategory() const override { return {"Tests"}; }
    Qtilities::Core::VersionInformation pluginVersionInformation() const override { return {1}; }
    QString pluginPublisher() const override { return "ZORV"; }
    QString pluginPublisherWebsite() const override { return {}; }
    QString pluginPublisherContact() const override { return {}; }
    QString pluginDescription() const override { return "Drives the host through its windows."; }
    QString pluginCopyright() const override { return {}; }
    QString pluginLicense() const override { return {}; }

private:
    void drive();
};

#endif
