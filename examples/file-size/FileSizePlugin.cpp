// Adds "Log Size" to the context menu of every file of a design.

#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeFileItem.h>
#include <QtilitiesExtensionSystem/IPlugin.h>
#include <QtilitiesLogging/Logger.h>

#include <QAction>
#include <QFileInfo>

using namespace Qtilities;

class FileSizePlugin : public QObject,
                       public ExtensionSystem::Interfaces::IPlugin,
                       public OrvanticCore::Interfaces::IDesignViewExtensions {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin
                     OrvanticCore::Interfaces::IDesignViewExtensions)

public:
    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    // The host finds extensions in its object pool, by the interfaces that they declare above.
    bool initialize(const QStringList&, QStringList*) override
    {
        m_action = new QAction(tr("Log Size"), this);
        connect(m_action, SIGNAL(triggered()), SLOT(logSize()));
        CoreGui::QtilitiesApplication::objectManager()->registerObject(this);
        return true;
    }
    bool initializeDependencies(QStringList*) override { return true; }
    void finalize() override {}

    QString pluginName() const override { return "File Size"; }
    Core::QtilitiesCategory pluginCategory() const override { return {"Examples"}; }
    Core::VersionInformation pluginVersionInformation() const override { return {1}; }
    QString pluginPublisher() const override { return "ZORV"; }
    QString pluginPublisherWebsite() const override { return {}; }
    QString pluginPublisherContact() const override { return {}; }
    QString pluginDescription() const override { return tr("Logs the size of a file."); }
    QString pluginCopyright() const override { return {}; }
    QString pluginLicense() const override { return "MIT"; }

    QList<QAction*> contextMenuActions(CoreGui::TreeFileItem* item, const QString&) override
    {
        m_path = item->filePath();
        return {m_action};
    }

private Q_SLOTS:
    void logSize()
    {
        const QString text = tr("%1: %2 bytes").arg(m_path).arg(QFileInfo(m_path).size());
        Logging::Logger::instance()->logPriorityMessage({}, Logging::Logger::Info, text);
    }

private:
    QAction* m_action = nullptr;
    QString m_path;
};

#include "FileSizePlugin.moc"
