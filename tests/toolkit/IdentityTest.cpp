#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <OrvanticCore/IDesignArchiveExtension.h>
#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCore/IAvailablePropertyProvider.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QtTest>

using Qtilities::Core::PropertySpecification;
using Qtilities::Core::VersionNumber;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

class IdentityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysWhoItIs();
    void isCastByItsNames();
    void putsThreeObjectsIntoThePool();
    void announcesThreeProperties();
    void addsItsCommandToTheToolsMenu();
    void opensOneWindowAgainAndAgain();
    void embedsOneIcon();
};

void IdentityTest::saysWhoItIs()
{
    const IPlugin* const plugin = Host::instance()->plugin();
    QCOMPARE(plugin->objectBase()->objectName(), QString::fromLatin1("ZORV VKT Plugin"));
    QCOMPARE(plugin->pluginCategory().toStringList(), QStringList(QLatin1String("ZORV")));
    QVERIFY(plugin->pluginVersionInformation().version() == VersionNumber(2, 2, 0));
    QVERIFY(plugin->pluginVersionInformation().isSupportedVersion(VersionNumber(2, 2, 0)));
    QCOMPARE(plugin->pluginPublisher(), QString::fromLatin1("ZORV"));
    QVERIFY(plugin->pluginDescription().endsWith(
        QLatin1String("for the HX Config Management system.")));
}

void IdentityTest::isCastByItsNames()
{
    QObject* const object = Host::instance()->plugin()->objectBase();
    QVERIFY(object->qt_metacast("ZORV_Plugin::ZORV_Plugin_Core"));
    QVERIFY(object->qt_metacast("IPlugin"));
    QVERIFY(object->qt_metacast("com.Qtilities.ExtensionSystem.IPlugin/1.0"));
    QVERIFY(!object->qt_metacast("QWidget"));
}

void IdentityTest::putsThreeObjectsIntoThePool()
{
    QCOMPARE(Host::instance()->pooledClasses(),
             QStringList() << QLatin1String("ZORV_Plugin::ZORV_ArchiveConfigExtension")
                           << QLatin1String("ZORV_Plugin::ZORV_FileTypeExtensions")
                           << QLatin1String("ZORV_Plugin::ZORV_PropertyProvider"));
    QVERIFY(Host::pooled<OrvanticCore::Interfaces::IDesignArchiveExtension>());
    QVERIFY(Host::pooled<OrvanticCore::Interfaces::IDesignViewExtensions>());
    QVERIFY(Host::pooled<IAvailablePropertyProvider>());
}

void IdentityTest::announcesThreeProperties()
{
    QStringList names;
    foreach (const PropertySpecification& property,
             Host::pooled<IAvailablePropertyProvider>()->availableProperties())
        names.append(property.propertyName());
    names.sort();
    QCOMPARE(names, QStringList() << QLatin1String("ZORV Pelk Config Number")
                                  << QLatin1String("ZORV Pelk Device")
                                  << QLatin1String("ZORV Pelk Module"));
}

void IdentityTest::addsItsCommandToTheToolsMenu()
{
    Qtilities::CoreGui::Interfaces::IActionManager* const actions =
        QtilitiesApplication::actionManager();
    QAction* const action = actions->command(QLatin1String("Tools.FcfGenerator"))->action();
    const QList<QAction*> entries = actions->menu(QLatin1String("Tools"))->menu()->actions();
    QCOMPARE(entries.count(), 2);
    QCOMPARE(entries.first(), action);
    QVERIFY(entries.last()->isSeparator());
    QCOMPARE(action->text(), QString::fromLatin1("Pelk FCF Generator"));
    QVERIFY(action->isEnabled());
}

void IdentityTest::opensOneWindowAgainAndAgain()
{
    QWidget* const window = Host::instance()->chooseGenerator();
    QVERIFY(window);
    QCOMPARE(Host::instance()->chooseGenerator(), window);
    press(window, "btnCancel");
    QVERIFY(!window->isVisible());
    QCOMPARE(Host::instance()->chooseGenerator(), window);
}

void IdentityTest::embedsOneIcon()
{
    QFile icon(QLatin1String(":/icons/radar_icon.ico"));
    QVERIFY(icon.open(QIODevice::ReadOnly));
    QCOMPARE(icon.readAll().size(), 1150);
}

QObject* newIdentityTest() { return new IdentityTest; }

#include "IdentityTest.moc"
