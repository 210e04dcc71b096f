#include "support/TestProgram.h"

#include <QtilitiesCore/IObjectBase.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>
#include <QtilitiesLogging/Logger.h>

#include <QFile>
#include <QLibraryInfo>
#include <QMenu>
#include <QTemporaryDir>
#include <QtTest>

using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::VersionInformation;
using Qtilities::Core::VersionNumber;
using Qtilities::Core::Interfaces::IObjectManager;
using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::ExtensionSystemCore;
using Qtilities::Logging::Logger;

namespace {

/// Notes the logger's priority messages as "kind text".
class Log : public QObject {
public:
    Log()
    {
        connect(Logger::instance(), &Logger::newPriorityMessage, this,
                [this](Logger::MessageType type, const QString& text) {
                    lines << QString("%1 %2").arg(type).arg(text);
                });
    }
    QStringList lines;
};

} // namespace

class FrameworkTest : public QObject {
    Q_OBJECT

private slots:
    void categoriesAreListsOfLevels();
    void versionsCompareFromTheMajorNumberDown();
    void versionsListWhatTheySupportOnce();
    void poolFindsObjectsInTheOrderOfTheirRegistration();
    void poolForgetsObjectsThatAreDeletedOrRemoved();
    void standardContextIsTheOnlyOne();
    void menusAndCommandsAreMadeOnce();
    void commandsAndSeparatorsGoBeforeACommandOrToTheEnd();
    void commandsOfUnknownContextsAreDisabled();
    void loggerJoinsItsMessages();
    void extensionSystemReportsLibrariesItCannotUse();
    void extensionSystemFinalizesOnlyWhatItHasInitialized();
    void mainWindowMayBeDeletedAtAnyTime();
};

void FrameworkTest::categoriesAreListsOfLevels()
{
    QVERIFY(QtilitiesCategory().isEmpty());
    QVERIFY(QtilitiesCategory(QString()) == QtilitiesCategory());
    QCOMPARE(QtilitiesCategory("A::B").toStringList(), QStringList("A::B"));
    const QtilitiesCategory category("A::B::::C", "::");
    QCOMPARE(category.toStringList(), QStringList({"A", "B", "C"}));
    QCOMPARE(category.toStringList(1), QStringList({"A", "B"}));
    QCOMPARE(category.toString(), QString("A::B::C"));
    QCOMPARE(category.toString("/"), QString("A/B/C"));
    QVERIFY(!(category == QtilitiesCategory("A")));
}

void FrameworkTest::versionsCompareFromTheMajorNumberDown()
{
    const QList<VersionNumber> ascending = {{1, 9, 9}, {2}, {2, 0, 1}, {2, 1, 0}, {10}};
    for (int i = 0; i < ascending.size(); ++i) {
        for (int j = 0; j < ascending.size(); ++j) {
            QCOMPARE(ascending[i] < ascending[j], i < j);
            QCOMPARE(ascending[i] > ascending[j], i > j);
            QCOMPARE(ascending[i] <= ascending[j], i <= j);
            QCOMPARE(ascending[i] >= ascending[j], i >= j);
            QCOMPARE(ascending[i] == ascending[j], i == j);
            QCOMPARE(ascending[i] != ascending[j], i != j);
        }
    }
}

void FrameworkTest::versionsListWhatTheySupportOnce()
{
    VersionInformation information(1, 2, 3);
    QCOMPARE(information.version().versionRevision(), 3);
    information << VersionNumber(2) << VersionNumber(3) << VersionNumber(2);
    QCOMPARE(information.supportedVersions().size(), 2);
    QVERIFY(information.isSupportedVersion(VersionNumber(3)));
    QVERIFY(!information.isSupportedVersion(VersionNumber(1, 2, 3)));
}

void FrameworkTest::poolFindsObjectsInTheOrderOfTheirRegistration()
{
    IObjectManager* const pool = QtilitiesApplication::objectManager();
    QSignalSpy added(pool, &IObjectManager::newObjectAdded);
    QTimer second;
    QTimer first;
    QObject other;
    pool->registerObject(&first);
    pool->registerObject(&other, QtilitiesCategory("Other"));
    pool->registerObject(&second);
    pool->registerObject(&first);
    pool->registerObject(nullptr);
    QCOMPARE(added.count(), 3);
    QCOMPARE(pool->registeredInterfaces("QTimer"), QList<QObject*>({&first, &second}));
    QCOMPARE(pool->registeredInterfaces("QObject"), QList<QObject*>({&first, &other, &second}));
    QCOMPARE(pool->registeredInterfaces("com.nobody.Has/1.0"), QList<QObject*>());
}

void FrameworkTest::poolForgetsObjectsThatAreDeletedOrRemoved()
{
    IObjectManager* const pool = QtilitiesApplication::objectManager();
    QCOMPARE(pool->registeredInterfaces("QObject"), QList<QObject*>());
    QSignalSpy removed(pool, &IObjectManager::objectRemoved);
    QObject kept;
    {
        QObject deleted;
        pool->registerObject(&deleted);
        pool->registerObject(&kept);
    }
    QCOMPARE(pool->registeredInterfaces("QObject"), QList<QObject*>{&kept});
    pool->removeObject(&kept);
    pool->removeObject(&kept);
    QCOMPARE(removed.count(), 2);
    QCOMPARE(pool->registeredInterfaces("QObject"), QList<QObject*>());
}

void FrameworkTest::standardContextIsTheOnlyOne()
{
    auto* const contexts = QtilitiesApplication::contextManager();
    QVERIFY(contexts->contextID("qti.def.Context.Standard") >= 0);
    QCOMPARE(contexts->contextID("another"), -1);
}

void FrameworkTest::menusAndCommandsAreMadeOnce()
{
    auto* const actions = QtilitiesApplication::actionManager();
    QVERIFY(!actions->menu("Once"));
    bool existed = true;
    ActionContainer* const menu = actions->createMenu("Once", existed);
    QVERIFY(!existed);
    QCOMPARE(actions->createMenu("Once", existed), menu);
    QVERIFY(existed);
    QCOMPARE(actions->menu("Once"), menu);
    QCOMPARE(menu->menu()->title(), QString("Once"));

    QVERIFY(!actions->command("Once.Do"));
    Command* const command = actions->registerActionPlaceHolder("Once.Do", "Do");
    QCOMPARE(actions->registerActionPlaceHolder("Once.Do", "Other"), command);
    QCOMPARE(actions->command("Once.Do"), command);
    QCOMPARE(command->text(), QString("Do"));
}

void FrameworkTest::commandsAndSeparatorsGoBeforeACommandOrToTheEnd()
{
    auto* const actions = QtilitiesApplication::actionManager();
    bool existed = false;
    ActionContainer* const menu = actions->createMenu("Order", existed);
    for (const char* id : {"b", "d"})
        menu->addAction(actions->registerActionPlaceHolder(id, id));
    menu->addAction(actions->registerActionPlaceHolder("a", "a"), "b");
    menu->addSeparator("d");
    menu->addAction(actions->registerActionPlaceHolder("e", "e"), "unknown");
    menu->addSeparator();
    QStringList entries;
    for (const QAction* action : menu->menu()->actions())
        entries << (action->isSeparator() ? "-" : action->text());
    QCOMPARE(entries, QStringList({"a", "b", "-", "d", "e", "-"}));
}

void FrameworkTest::commandsOfUnknownContextsAreDisabled()
{
    auto* const actions = QtilitiesApplication::actionManager();
    const int standard =
        QtilitiesApplication::contextManager()->contextID("qti.def.Context.Standard");
    const QKeySequence none;
    QVERIFY(actions->registerActionPlaceHolder("ctx.1", "1")->action()->isEnabled());
    QVERIFY(actions->registerActionPlaceHolder("ctx.2", "2", none, {-1, standard})
                ->action()
                ->isEnabled());
    QVERIFY(!actions->registerActionPlaceHolder("ctx.3", "3", none, {-1})->action()->isEnabled());
}

void FrameworkTest::loggerJoinsItsMessages()
{
    Log log;
    Logger::instance()->logPriorityMessage(QString(), Logger::Warning, "one");
    Logger::instance()->logPriorityMessage("engine", Logger::Error, "one", 2, "three");
    QCOMPARE(log.lines, QStringList({"4 one", "8 one 2 three"}));
}

void FrameworkTest::extensionSystemReportsLibrariesItCannotUse()
{
    QTemporaryDir folder;
    QFile broken(folder.filePath("a-broken.so"));
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no library") > 0);
    broken.close();
    QFile notes(folder.filePath("notes.txt"));
    QVERIFY(notes.open(QIODevice::WriteOnly));
    const QString icons =
        QLibraryInfo::location(QLibraryInfo::PluginsPath) + "/imageformats/libqico.so";
    QVERIFY(QFile::link(icons, folder.filePath("b-other.so")));

    Log log;
    ExtensionSystemCore* const extensions = ExtensionSystemCore::instance();
    extensions->addPluginPath(folder.path());
    extensions->addPluginPath("/no/such/folder");
    extensions->initialize();
    QCOMPARE(log.lines.size(), 2);
    QVERIFY2(log.lines[0].startsWith("8 Cannot load plug-in \"" + folder.filePath("a-broken.so")),
             qPrintable(log.lines[0]));
    QVERIFY2(log.lines[1].contains("b-other.so\": it does not implement "
                                   "com.Qtilities.ExtensionSystem.IPlugin/1.0"),
             qPrintable(log.lines[1]));
    QVERIFY(!extensions->findPlugin("nobody"));
    extensions->finalize();
}

void FrameworkTest::extensionSystemFinalizesOnlyWhatItHasInitialized()
{
    Log log;
    ExtensionSystemCore* const extensions = ExtensionSystemCore::instance();
    extensions->addPluginPath(NOTING_PLUGINS);
    extensions->initialize();
    QCOMPARE(log.lines, QStringList({"8 Cannot start plug-in \"Refusing\": one reason; another",
                                     "8 Cannot start plug-in \"Unready\": one reason; another"}));
    QVERIFY(!extensions->findPlugin("Refusing"));
    QVERIFY(!extensions->findPlugin("Unready"));
    QVERIFY(extensions->findPlugin("Ready"));

    extensions->initialize();
    QCOMPARE(log.lines.size(), 2);
    extensions->finalize();
    QVERIFY(!extensions->findPlugin("Ready"));
    QCOMPARE(qApp->property("calls").toStringList(),
             QStringList({"Refusing: initialize", "Refusing: deleted", "Unready: initialize",
                          "Ready: initialize", "Unready: initializeDependencies",
                          "Ready: initializeDependencies", "Ready: finalize", "Unready: finalize",
                          "Ready: deleted", "Unready: deleted"}));
}

void FrameworkTest::mainWindowMayBeDeletedAtAnyTime()
{
    QVERIFY(!QtilitiesApplication::mainWindow());
    {
        QWidget window;
        QtilitiesApplication::setMainWindow(&window);
        QCOMPARE(QtilitiesApplication::mainWindow(), &window);
    }
    QVERIFY(!QtilitiesApplication::mainWindow());
}

ZORV_TEST_MAIN(FrameworkTest)
{
    QtilitiesApplication application(argc, argv);
    FrameworkTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "FrameworkTest.moc"
