#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QCoreApplication>
#include <QObject>
#include <QVariant>

/// A plug-in that appends "name: operation" to the application's property "calls", and fails in the
/// operation that it was built to fail in.
class NotingPlugin : public QObject, public Qtilities::ExtensionSystem::Interfaces::IPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")

public:
    ~NotingPlugin() override { note("deleted"); }

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    bool initialize(const QStringList&, QStringList* errors) override
    {
        return note("initialize", errors);
    }
    bool initializeDependencies(QStringList* errors) override
    {
        return note("initializeDependencies", errors);
    }
    void finalize() override { note("finalize"); }

    QString pluginName() const override { return NOTING_PLUGIN_NAME; }
    Qtilities::Core::QtilitiesCategory pluginCategory() const override { return {}; }
    Qtilities::Core::VersionInformation pluginVersionInformation() const override { return {1}; }
    QString pluginPublisher() const override { return {}; }
    QString pluginPublisherWebsite() const override { return {}; }
    QString pluginPublisherContact() const override { return {}; }
    QString pluginDescription() const override { return {}; }
    QString pluginCopyright() const override { return {}; }
    QString pluginLicense() const override { return {}; }

private:
    bool note(const QString& operation, QStringList* errors = nullptr)
    {
        const QStringList before = qApp->property("calls").toStringList();
        qApp->setProperty("calls", before + QStringList(pluginName() + ": " + operation));
        if (operation != NOTING_PLUGIN_FAILS_IN)
            return true;
        *errors << "one reason"
                << "another";
        return false;
    }
};

#include "NotingPlugin.moc"
