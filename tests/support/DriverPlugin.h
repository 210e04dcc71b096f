#ifndef TESTS_SUPPORT_DRIVERPLUGIN_H
#define TESTS_SUPPORT_DRIVERPLUGIN_H

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QObject>
#include <QTimer>

/// A second plug-in in the real host, which acts as its user: once all plug-ins have started it
/// calls run(), which ends the host.
class DriverPlugin : public QObject, public Qtilities::ExtensionSystem::Interfaces::IPlugin {
public:
    /// It only starts if the environment variable \p variable has a value.
    explicit DriverPlugin(const char* variable) : m_variable(variable) {}

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    bool initialize(const QStringList&, QStringList* error_strings) override
    {
        if (qEnvironmentVariableIsEmpty(m_variable))
            error_strings->append(QString("%1 has no value").arg(m_variable));
        return error_strings->isEmpty();
    }
    bool initializeDependencies(QStringList*) override
    {
        QTimer::singleShot(0, this, [this] { run(); });
        return true;
    }
    void finalize() override {}

    QString pluginName() const override { return m_variable; }
    Qtilities::Core::QtilitiesCategory pluginCategory() const override { return {"Tests"}; }
    Qtilities::Core::VersionInformation pluginVersionInformation() const override { return {1}; }
    QString pluginPublisher() const override { return "ZORV"; }
    QString pluginPublisherWebsite() const override { return {}; }
    QString pluginPublisherContact() const override { return {}; }
    QString pluginDescription() const override { return "Drives the host through its windows."; }
    QString pluginCopyright() const override { return {}; }
    QString pluginLicense() const override { return {}; }

protected:
    virtual void run() = 0;

private:
    const char* m_variable;
};

#endif
