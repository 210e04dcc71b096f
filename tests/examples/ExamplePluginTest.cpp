#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeFileItem.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>
#include <QtilitiesLogging/Logger.h>

#include <QAction>
#include <QTemporaryFile>
#include <QtTest>

using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::ExtensionSystem::ExtensionSystemCore;
using Qtilities::Logging::Logger;

/// The example plug-in in the folder EXAMPLE_PLUGINS, used as a host uses plug-ins.
class ExamplePluginTest : public QObject {
    Q_OBJECT

private slots:
    void logsTheSizeOfTheFileThatTheMenuIsFor();
};

void ExamplePluginTest::logsTheSizeOfTheFileThatTheMenuIsFor()
{
    ExtensionSystemCore::instance()->addPluginPath(qEnvironmentVariable("EXAMPLE_PLUGINS"));
    ExtensionSystemCore::instance()->initialize();
    QVERIFY(ExtensionSystemCore::instance()->findPlugin("File Size"));
    const QList<QObject*> extensions = QtilitiesApplication::objectManager()->registeredInterfaces(
        "com.Core.Interfaces.IDesignViewExtensions/1.0");
    QCOMPARE(extensions.size(), 1);
    auto* const extension = qobject_cast<IDesignViewExtensions*>(extensions.first());
    QVERIFY(extension);

    QTemporaryFile file;
    QVERIFY(file.open());
    QCOMPARE(file.write(QByteArray(2112, 'x')), qint64(2112));
    file.close();
    TreeFileItem item(file.fileName());
    const QList<QAction*> actions = extension->contextMenuActions(&item, "MainDesignWidget");
    QCOMPARE(actions.size(), 1);
    QCOMPARE(actions.first()->text(), QString("Log Size"));

    QStringList messages;
    connect(Logger::instance(), &Logger::newPriorityMessage, this,
            [&messages](Logger::MessageType, const QString& text) { messages << text; });
    actions.first()->trigger();
    QCOMPARE(messages, QStringList(file.fileName() + ": 2112 bytes"));
    ExtensionSystemCore::instance()->finalize();
}

int main(int argc, char** argv)
{
    QtilitiesApplication application(argc, argv);
    ExamplePluginTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ExamplePluginTest.moc"
