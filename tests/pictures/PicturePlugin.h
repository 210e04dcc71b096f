#ifndef TESTS_PICTURES_PICTUREPLUGIN_H
#define TESTS_PICTURES_PICTUREPLUGIN_H

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>

/// Takes pictures of the running host and ends it. In the folder that PELK_PICTURES names:
/// "side-by-side.png" for the README, and one of each window for a look at its layout.
class PicturePlugin : public QObject, public Qtilities::ExtensionSystem::Interfaces::IPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")

public:
    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    bool initialize(const QStringList& arguments, QStringList* error_strings) override;
    bool initializeDependencies(QStringList* error_strings) override;
    void finalize() override {}

    QString pluginName() const override { return "Pictures"; }
    Qtilities::Core::QtilitiesCategory pluginCategory() const override { return {"Tests"}; }
    Qtilities::Core::VersionInformation pluginVersionInformation() const override { return {1}; }
    QString pluginPublisher() const override { return "ZORV"; }
    QString pluginPublisherWebsite() const override { return {}; }
    QString pluginPublisherContact() const override { return {}; }
    QString pluginDescription() const override { return "Takes pictures of the host."; }
    QString pluginCopyright() const override { return {}; }
    QString pluginLicense() const override { return {}; }

private:
    void takeAll();
    void takeSideBySide();
    void takeDialogs();
    void savePicture(const QString& name);

    QString m_folder;
    QWidget* m_host = nullptr;
};

#endif
