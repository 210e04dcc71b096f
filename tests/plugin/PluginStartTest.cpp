#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QAction>
#include <QIcon>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QtTest>

using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Interfaces::IContextManager;
using Qtilities::Core::Interfaces::IObjectManager;
using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::Interfaces::IActionManager;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

constexpr int ContextNumber = 4711;

/// What the plug-in asked of the host, in order.
QStringList calls;
/// What it registered.
QObjectList objects;

class RecordedPool : public IObjectManager {
public:
    void registerObject(QObject* object, QtilitiesCategory category) override
    {
        calls << QString("register %1 %2")
                     .arg(object->metaObject()->className(),
                          category.isEmpty() ? "in no category" : "in a category");
        objects << object;
    }
    void removeObject(QObject*) override { calls << "remove"; }
    QList<QObject*> registeredInterfaces(const QString&) const override { return {}; }
};

class RecordedContexts : public IContextManager {
public:
    int contextID(const QString& name) override
    {
        calls << "context " + name;
        return ContextNumber;
    }
};

class RecordedCommand : public Command {
public:
    QAction* action() const override { return m_action; }
    QString text() const override { return m_action->text(); }

private:
    QAction* m_action = new QAction(const_cast<RecordedCommand*>(this));
};

class RecordedMenu : public ActionContainer {
public:
    QMenu* menu() const override { return nullptr; }
    void addAction(Command*, const QString& before) override
    {
        calls << "add the command before \"" + before + '"';
    }
    void addSeparator(const QString& before) override
    {
        calls << "add a separator before \"" + before + '"';
    }
};

class RecordedActions : public IActionManager {
public:
    ActionContainer* createMenu(const QString& id, bool& existed) override
    {
        calls << "menu " + id;
        existed = true;
        return &m_menu;
    }
    ActionContainer* menu(const QString&) override { return nullptr; }
    Command* registerActionPlaceHolder(const QString& id, const QString& text,
                                       const QKeySequence& shortcut, const QList<int>& contexts,
                                       const QIcon& icon) override
    {
        calls << QString("command %1 \"%2\" %3 shortcut, %4 icon")
                     .arg(id, text, shortcut.isEmpty() ? "no" : "a", icon.isNull() ? "no" : "an");
        for (const int context : contexts)
            calls << QString("active in context %1").arg(context);
        return &m_command;
    }
    Command* command(const QString&) override { return nullptr; }

private:
    RecordedMenu m_menu;
    RecordedCommand m_command;
};

template <class Manager>
Manager* recorded()
{
    // Left to the end of the process, as the framework's own are.
    static auto* const manager = new Manager;
    return manager;
}

} // namespace

// The program's own definitions come before those of the framework's library, for the plug-in too.
namespace Qtilities {

IObjectManager* Core::QtilitiesCoreApplication::objectManager() { return recorded<RecordedPool>(); }

IContextManager* Core::QtilitiesCoreApplication::contextManager()
{
    return recorded<RecordedContexts>();
}

IActionManager* CoreGui::QtilitiesApplication::actionManager()
{
    return recorded<RecordedActions>();
}

IObjectManager* CoreGui::QtilitiesApplication::objectManager()
{
    calls << "the pool, of the wrong application";
    return recorded<RecordedPool>();
}

IContextManager* CoreGui::QtilitiesApplication::contextManager()
{
    calls << "the contexts, of the wrong application";
    return recorded<RecordedContexts>();
}

} // namespace Qtilities

/// Starts the plug-in in a framework that records what it is asked for.
class PluginStartTest : public QObject {
    Q_OBJECT

private slots:
    void asksTheHostForNoMoreThanItNeedsInOrder();
};

void PluginStartTest::asksTheHostForNoMoreThanItNeedsInOrder()
{
    const QTemporaryDir settings;
    OrvanticCore::DesignManager::instance()->setSettingsFilePath(settings.filePath("host.ini"));
    QPluginLoader loader(ZORV_PLUGIN_FILE);
    auto* const plugin = qobject_cast<IPlugin*>(loader.instance());
    QVERIFY2(plugin, qPrintable(loader.errorString()));
    QVERIFY(plugin->initialize(QStringList(), nullptr));
    QCOMPARE(calls,
             QStringList({"register ZORV_Plugin::ZORV_ArchiveConfigExtension in no category",
                          "register ZORV_Plugin::ZORV_FileTypeExtensions in no category",
                          "register ZORV_Plugin::ZORV_PropertyProvider in no category",
                          "context qti.def.Context.Standard", "menu Tools",
                          "command Tools.FcfGenerator \"Pelk FCF Generator\" no shortcut, no icon",
                          "active in context 4711", "add the command before \"\"",
                          "add a separator before \"\""}));
    calls.clear();
    QVERIFY(plugin->initializeDependencies(nullptr));
    plugin->finalize();
    QCOMPARE(calls, QStringList());
    qDeleteAll(objects);
}

QTEST_MAIN(PluginStartTest)
#include "PluginStartTest.moc"
