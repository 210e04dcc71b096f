#include "support/EventCount.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/IDesignViewExtensions.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QAction>
#include <QDirIterator>
#include <QFile>
#include <QIcon>
#include <QMenu>
#include <QPluginLoader>
#include <QPointer>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

#include <memory>
#include <utility>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::Core::VersionInformation;
using Qtilities::Core::VersionNumber;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

/// Puts every text of the plug-in's core into brackets.
class Quoting : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, "ZORV_Plugin::ZORV_Plugin_Core") == 0
                   ? '<' + QString::fromUtf8(source) + '>'
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

/// All embedded files, those of libraries too.
QStringList embeddedFiles()
{
    QStringList files;
    for (QDirIterator entry(":/", QDir::Files, QDirIterator::Subdirectories); entry.hasNext();)
        files << entry.next();
    return files;
}

QList<QWidget*> generatorWindows()
{
    QList<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "PelkFcfGenerator")
            windows << window;
    }
    return windows;
}

} // namespace

/// Each test has a host of its own, in which the plug-in is loaded but not started.
class PluginTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_embeddedBefore = embeddedFiles(); }
    void init();
    void cleanup();

    void embedsOneIcon();
    void isFoundByItsInterface();
    void isCastByEachOfItsNames_data();
    void isCastByEachOfItsNames();
    void isItsOwnObjectBase();
    void saysWhoItIs();
    void declaresOneSlot();
    void startsWhateverTheArguments();
    void registersItsExtensionsInOrder();
    void addsItsCommandAndASeparatorToTheToolsMenu();
    void opensOneWindowAndBringsItBack();
    void makesANewInstanceAfterTheFirstWasDeleted();
    void leavesWhatItMadeToTheHostWhenItIsDeleted();
    void givesItsIconToTheActionsOfDesigns();
    void translatesWhatIsMeantForPeople();

private:
    /// Makes the host's Tools menu, with one entry, and starts the plug-in as the host does.
    void start();
    static QMenu* tools() { return QtilitiesApplication::actionManager()->menu("Tools")->menu(); }
    /// Chooses the plug-in's entry of the Tools menu by the mouse.
    static void chooseGenerator();

    QStringList m_embeddedBefore;
    std::unique_ptr<QTemporaryDir> m_settings;
    QPluginLoader m_loader{ZORV_PLUGIN_FILE};
    QObject* m_core = nullptr;
    IPlugin* m_plugin = nullptr;
};

void PluginTest::init()
{
    m_settings = std::make_unique<QTemporaryDir>();
    DesignManager::instance()->setSettingsFilePath(m_settings->filePath("host.ini"));
    m_core = m_loader.instance();
    QVERIFY2(m_core, qPrintable(m_loader.errorString()));
    m_plugin = qobject_cast<IPlugin*>(m_core);
    QVERIFY(m_plugin);
}

void PluginTest::cleanup()
{
    // The plug-in leaves what it made for the host to the end of the process.
    qDeleteAll(generatorWindows());
    qDeleteAll(QtilitiesApplication::objectManager()->registeredInterfaces("QObject"));
    delete std::exchange(m_core, nullptr);
    // With all menus and commands; the next one asked for is new.
    delete QtilitiesApplication::actionManager();
}

void PluginTest::start()
{
    bool existed = true;
    QtilitiesApplication::actionManager()->createMenu("Tools", existed);
    QVERIFY(!existed);
    tools()->addAction("Of the host");
    QVERIFY(m_plugin->initialize(QStringList(), nullptr));
    QVERIFY(m_plugin->initializeDependencies(nullptr));
}

void PluginTest::chooseGenerator()
{
    QAction* const entry =
        QtilitiesApplication::actionManager()->command("Tools.FcfGenerator")->action();
    tools()->popup(QPoint(0, 0));
    QTest::mouseClick(tools(), Qt::LeftButton, {}, tools()->actionGeometry(entry).center());
}

void PluginTest::embedsOneIcon()
{
    QFile icon(":/icons/radar_icon.ico");
    QVERIFY(icon.open(QIODevice::ReadOnly));
    const QByteArray bytes = icon.readAll();
    QCOMPARE(bytes.size(), 1150);
    // The directory: one image, 16 by 16, of 32 bits, that is the rest of the file.
    QCOMPARE(bytes.left(22).toHex(' '),
             QByteArray("00 00 01 00 01 00 10 10 00 00 01 00 20 00 68 04 00 00 16 00 00 00"));
    const QImage image(":/icons/radar_icon.ico");
    QCOMPARE(image.size(), QSize(16, 16));
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(8, 8)), 255);
    QStringList embedded = embeddedFiles();
    for (const QString& other : m_embeddedBefore)
        embedded.removeAll(other);
    QCOMPARE(embedded, QStringList(":/icons/radar_icon.ico"));
}

void PluginTest::isFoundByItsInterface()
{
    QCOMPARE(m_loader.metaData()["IID"].toString(),
             QString("com.Qtilities.ExtensionSystem.IPlugin/1.0"));
    QCOMPARE(QString(m_core->metaObject()->className()), QString("ZORV_Plugin::ZORV_Plugin_Core"));
    QVERIFY(!m_core->parent());
}

void PluginTest::isCastByEachOfItsNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("class") << QByteArray("ZORV_Plugin::ZORV_Plugin_Core") << true;
    QTest::newRow("interface") << QByteArray("IPlugin") << true;
    QTest::newRow("identifier") << QByteArray("com.Qtilities.ExtensionSystem.IPlugin/1.0") << true;
    QTest::newRow("base class") << QByteArray("QObject") << true;
    QTest::newRow("another class") << QByteArray("QWidget") << false;
    QTest::newRow("the name without its namespace") << QByteArray("ZORV_Plugin_Core") << false;
}

void PluginTest::isCastByEachOfItsNames()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, accepted);
    void* const cast = m_core->qt_metacast(name.constData());
    QCOMPARE(cast != nullptr, accepted);
    if (name.contains("IPlugin"))
        QCOMPARE(static_cast<IPlugin*>(cast), m_plugin);
}

void PluginTest::isItsOwnObjectBase()
{
    QCOMPARE(m_plugin->objectBase(), m_core);
    QCOMPARE(static_cast<const IPlugin*>(m_plugin)->objectBase(), m_core);
}

void PluginTest::saysWhoItIs()
{
    QCOMPARE(m_plugin->pluginName(), QString("ZORV VKT Plugin"));
    QCOMPARE(m_core->objectName(), m_plugin->pluginName());
    QCOMPARE(m_plugin->pluginCategory().toStringList(), QStringList("ZORV"));
    const VersionInformation version = m_plugin->pluginVersionInformation();
    QVERIFY(version.version() == VersionNumber(2, 2, 0));
    QCOMPARE(version.supportedVersions().size(), 1);
    QVERIFY(version.isSupportedVersion(VersionNumber(2, 2, 0)));
    QCOMPARE(m_plugin->pluginPublisher(), QString("ZORV"));
    QCOMPARE(m_plugin->pluginPublisherWebsite(), QString("https://zorv.example/"));
    QCOMPARE(m_plugin->pluginPublisherContact(), QString("support@zorv.example"));
    QCOMPARE(m_plugin->pluginDescription(),
             QString("Provides custom design archiving functionality in order to prepare "
                     "configuration packages for the HX Config Management system."));
    QVERIFY(m_plugin->pluginCopyright().startsWith("Copyright 2026 "));
    QVERIFY(!m_plugin->pluginLicense().isEmpty());
}

void PluginTest::declaresOneSlot()
{
    const QMetaObject* const meta = m_core->metaObject();
    QCOMPARE(meta->methodCount() - meta->methodOffset(), 1);
    QCOMPARE(meta->method(meta->methodOffset()).methodSignature(),
             QByteArray("showFcfGenerator()"));
    QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 0);
}

void PluginTest::startsWhateverTheArguments()
{
    QStringList errors = {"of another"};
    QVERIFY(m_plugin->initialize({"some", "--arguments"}, &errors));
    QVERIFY(m_plugin->initializeDependencies(&errors));
    QCOMPARE(errors, QStringList("of another"));
    QVERIFY(m_plugin->initializeDependencies(nullptr));
}

void PluginTest::registersItsExtensionsInOrder()
{
    start();
    const auto* const pool = QtilitiesApplication::objectManager();
    QStringList names;
    for (const QObject* object : pool->registeredInterfaces("QObject")) {
        names << object->metaObject()->className();
        QVERIFY(!object->parent());
        // Where the pool keeps the category.
        const QVariant category = object->property("qti.prop.CategoryMap");
        QVERIFY(category.isValid() && category.toStringList().isEmpty());
    }
    QCOMPARE(names, QStringList({"ZORV_Plugin::ZORV_ArchiveConfigExtension",
                                 "ZORV_Plugin::ZORV_FileTypeExtensions",
                                 "ZORV_Plugin::ZORV_PropertyProvider"}));
    for (const char* identifier : {"com.Core.Interfaces.IDesignArchiveExtension/1.0",
                                   "com.Core.Interfaces.IDesignViewExtensions/1.0",
                                   "com.Qtilities.Core.IAvailablePropertyProvider/1.0"})
        QCOMPARE(pool->registeredInterfaces(identifier).size(), 1);
}

void PluginTest::addsItsCommandAndASeparatorToTheToolsMenu()
{
    start();
    const QList<QAction*> entries = tools()->actions();
    QCOMPARE(entries.size(), 3);
    Command* const command = QtilitiesApplication::actionManager()->command("Tools.FcfGenerator");
    QVERIFY(command);
    QCOMPARE(entries[1], command->action());
    QVERIFY(entries[2]->isSeparator());
    QCOMPARE(command->text(), QString("Pelk FCF Generator"));
    QVERIFY(command->action()->isEnabled());
    QVERIFY(command->action()->shortcut().isEmpty());
    QVERIFY(command->action()->icon().isNull());
}

void PluginTest::opensOneWindowAndBringsItBack()
{
    start();
    QCOMPARE(generatorWindows().size(), 0);

    chooseGenerator();
    QCOMPARE(generatorWindows().size(), 1);
    QWidget* const window = generatorWindows().first();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QVERIFY(!window->parent());
    QVERIFY(!window->testAttribute(Qt::WA_DeleteOnClose));

    // Covered by another window, and then closed: the same window comes back.
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QVERIFY(QTest::qWaitForWindowActive(&other));
    window->findChild<QWidget*>("AuthoEditBox")->setFocus();
    const EventCount raised(window, QEvent::ZOrderChange);
    chooseGenerator();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(raised.count(), 1);
    QCOMPARE(QApplication::focusWidget(), window);

    QTest::mouseClick(window->findChild<QWidget*>("btnCancel"), Qt::LeftButton);
    QVERIFY(!window->isVisible());
    chooseGenerator();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(generatorWindows(), QList<QWidget*>{window});

    window->showMinimized();
    QVERIFY(window->isMinimized());
    chooseGenerator();
    QVERIFY(!window->isMinimized());
    QVERIFY(QTest::qWaitForWindowActive(window));
}

void PluginTest::makesANewInstanceAfterTheFirstWasDeleted()
{
    start();
    chooseGenerator();
    m_plugin->finalize();
    bool deleted = false;
    connect(m_core, &QObject::destroyed, this, [&deleted] { deleted = true; });
    delete std::exchange(m_core, nullptr);
    QVERIFY(deleted);

    m_core = m_loader.instance();
    QVERIFY(m_core);
    QCOMPARE(qobject_cast<IPlugin*>(m_core)->pluginName(), QString("ZORV VKT Plugin"));
    QCOMPARE(m_loader.instance(), m_core);
    // What the first one made for the host is still there.
    QCOMPARE(generatorWindows().size(), 1);
    QVERIFY(QtilitiesApplication::actionManager()->command("Tools.FcfGenerator"));
}

void PluginTest::leavesWhatItMadeToTheHostWhenItIsDeleted()
{
    start();
    chooseGenerator();
    QList<QPointer<QObject>> made;
    for (QObject* object : QtilitiesApplication::objectManager()->registeredInterfaces("QObject"))
        made << object;
    for (QWidget* window : generatorWindows())
        made << window;
    QCOMPARE(made.size(), 4);
    m_plugin->finalize();
    delete std::exchange(m_core, nullptr);
    QVERIFY(!made.contains(nullptr));
}

void PluginTest::givesItsIconToTheActionsOfDesigns()
{
    start();
    const QList<QObject*> extensions = QtilitiesApplication::objectManager()->registeredInterfaces(
        "com.Core.Interfaces.IDesignViewExtensions/1.0");
    QCOMPARE(extensions.size(), 1);
    auto* const view = qobject_cast<IDesignViewExtensions*>(extensions.first());
    QVERIFY(view);
    Design design("/some/design", "Firmware Design");
    const QImage icon(":/icons/radar_icon.ico");
    for (const char* name : {"top.bin", "top.txt"}) {
        const QList<QAction*> actions =
            view->contextMenuActions(design.restoreFile(name), "MainDesignWidget");
        QCOMPARE(actions.size(), 1);
        const QImage shown = actions.first()->icon().pixmap(16).toImage();
        QCOMPARE(shown.convertToFormat(QImage::Format_ARGB32),
                 icon.convertToFormat(QImage::Format_ARGB32));
        qDeleteAll(actions);
    }
}

void PluginTest::translatesWhatIsMeantForPeople()
{
    Quoting translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    start();
    for (const QString& text :
         {m_plugin->pluginDescription(), m_plugin->pluginCopyright(), m_plugin->pluginLicense()})
        QVERIFY2(text.startsWith('<') && text.endsWith('>'), qPrintable(text));
    for (const QString& text :
         {m_plugin->pluginName(), m_plugin->pluginPublisher(),
          QtilitiesApplication::actionManager()->command("Tools.FcfGenerator")->text()})
        QVERIFY2(!text.contains('<'), qPrintable(text));
}

int main(int argc, char** argv)
{
    QtilitiesApplication application(argc, argv);
    PluginTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "PluginTest.moc"
