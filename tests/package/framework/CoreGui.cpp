#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeFileItem.h>
#include <QtilitiesCoreGui/TreeNode.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>
#include <QtilitiesLogging/Logger.h>

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QPluginLoader>
#include <QPointer>

namespace Qtilities {
namespace CoreGui {

namespace {

class ProxyCommand : public Command {
public:
    explicit ProxyCommand(QAction* action) : m_action(action) {}
    QAction* action() const override { return m_action; }
    QString text() const override { return m_action->text(); }

private:
    QAction* m_action;
};

class Container : public ActionContainer {
public:
    QMenu* menu() const override { return const_cast<QMenu*>(&m_menu); }
    void addAction(Command* command, const QString&) override
    {
        m_menu.addAction(command->action());
    }
    void addSeparator(const QString&) override { m_menu.addSeparator(); }

private:
    QMenu m_menu;
};

class Manager : public Interfaces::IActionManager {
public:
    ~Manager() override
    {
        qDeleteAll(m_menus);
        qDeleteAll(m_commands);
    }
    ActionContainer* createMenu(const QString& id, bool& existed) override
    {
        existed = m_menus.contains(id);
        if (!existed)
            m_menus[id] = new Container;
        return m_menus[id];
    }
    ActionContainer* menu(const QString& id) override { return m_menus.value(id); }
    Command* registerActionPlaceHolder(const QString& id, const QString& user_text,
                                       const QKeySequence& shortcut, const QList<int>& context,
                                       const QIcon& icon) override
    {
        auto* const action = new QAction(icon, user_text, this);
        action->setShortcut(shortcut);
        action->setEnabled(context.contains(17));
        m_commands[id] = new ProxyCommand(action);
        emit numberOfCommandsChanged();
        return m_commands[id];
    }
    Command* command(const QString& id) override { return m_commands.value(id); }
    QList<Command*> commands() const override { return m_commands.values(); }

private:
    QMap<QString, ActionContainer*> m_menus;
    QMap<QString, Command*> m_commands;
};

QPointer<Manager> theManager;
QPointer<QWidget> theMainWindow;

} // namespace

QtilitiesApplication::QtilitiesApplication(int& argc, char** argv)
    : QApplication(argc, argv), m_finalized(false)
{
}

QtilitiesApplication::~QtilitiesApplication() { delete theManager; }

Core::Interfaces::IObjectManager* QtilitiesApplication::objectManager() { return OBJECT_MANAGER; }

Core::Interfaces::IContextManager* QtilitiesApplication::contextManager()
{
    return Core::QtilitiesCoreApplication::contextManager();
}

Interfaces::IActionManager* QtilitiesApplication::actionManager()
{
    if (!theManager)
        theManager = new Manager;
    return theManager;
}

void QtilitiesApplication::setMainWindow(QWidget* window) { theMainWindow = window; }

QWidget* QtilitiesApplication::mainWindow() { return theMainWindow; }

QString AbstractTreeItem::getName(TreeNode* parent) const
{
    Q_UNUSED(parent)
    return objectBase()->objectName();
}

QString AbstractTreeItem::getCategoryString(const QString& separator, int observer_id) const
{
    Q_UNUSED(separator)
    Q_UNUSED(observer_id)
    return QString();
}

TreeItemBase::TreeItemBase(const QString& name, QObject* parent) : QObject(parent)
{
    setObjectName(name);
}

TreeNode::TreeNode(const QString& name, QObject* parent) : QObject(parent), m_cycles(0)
{
    setObjectName(name);
}

TreeNode* TreeNode::addNode(const QString& name) { return new TreeNode(name, this); }

bool TreeNode::addItem(TreeItemBase* item)
{
    item->setParent(this);
    return true;
}

void TreeNode::endProcessingCycle(bool broadcast)
{
    if (--m_cycles > 0)
        return;
    if (broadcast)
        emit layoutChanged();
    emit processingCycleEnded(broadcast);
}

TreeFileItem::TreeFileItem(const QString& file_path, const QString& relative_to, bool watch)
    : TreeItemBase(QFileInfo(file_path).fileName()), m_watched(watch), m_relativeTo(relative_to),
      m_path(file_path)
{
}

QString TreeFileItem::fileName() const { return QFileInfo(m_path).fileName(); }

QString TreeFileItem::suffix() const { return QFileInfo(m_path).suffix(); }

QString TreeFileItem::completeSuffix() const { return QFileInfo(m_path).completeSuffix(); }

bool TreeFileItem::exists() const { return QFileInfo::exists(m_path); }

} // namespace CoreGui

namespace ExtensionSystem {

ExtensionSystemCore* ExtensionSystemCore::instance()
{
    static ExtensionSystemCore core;
    return &core;
}

void ExtensionSystemCore::addPluginPath(const QString& path) { m_paths.append(path); }

void ExtensionSystemCore::initialize()
{
    for (const QString& path : m_paths) {
        for (const QFileInfo& file : QDir(path).entryInfoList({"*.so"}, QDir::Files)) {
            QPluginLoader loader(file.filePath());
            auto* const plugin = qobject_cast<Interfaces::IPlugin*>(loader.instance());
            if (!plugin) {
                LOG_INFO(loader.errorString());
                continue;
            }
            QStringList errors;
            if (plugin->initialize(QStringList(), &errors) &&
                plugin->initializeDependencies(&errors))
                m_plugins.append(plugin);
        }
    }
}

void ExtensionSystemCore::finalize()
{
    for (Interfaces::IPlugin* plugin : m_plugins) {
        plugin->finalize();
        delete plugin->objectBase();
    }
    m_plugins.clear();
}

Interfaces::IPlugin* ExtensionSystemCore::findPlugin(const QString& name) const
{
    for (Interfaces::IPlugin* plugin : m_plugins) {
        if (plugin->pluginName() == name)
            return plugin;
    }
    return nullptr;
}

} // namespace ExtensionSystem
} // namespace Qtilities
