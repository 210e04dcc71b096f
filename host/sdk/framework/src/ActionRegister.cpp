#include "host/sdk/framework/src/ActionRegister.h"

#include "host/sdk/framework/src/ContextRegister.h"

namespace Qtilities {
namespace CoreGui {

Command::~Command() {}
ActionContainer::~ActionContainer() {}

namespace Interfaces {

IActionManager::~IActionManager() {}

} // namespace Interfaces

RegisteredCommand::RegisteredCommand(QAction* action, QObject* parent)
    : Command(parent), m_action(action)
{
    m_action->setParent(this);
}

QAction* RegisteredCommand::action() const { return m_action; }

QString RegisteredCommand::text() const { return m_action->text(); }

MenuContainer::MenuContainer(const QString& title, QObject* parent)
    : ActionContainer(parent), m_menu(new QMenu(title))
{
}

MenuContainer::~MenuContainer() { delete m_menu; }

QMenu* MenuContainer::menu() const { return m_menu; }

void MenuContainer::addAction(Command* command, const QString& before)
{
    if (command)
        m_menu->insertAction(placedAction(before), command->action());
}

void MenuContainer::addSeparator(const QString& before)
{
    m_menu->insertSeparator(placedAction(before));
}

QAction* MenuContainer::placedAction(const QString& id) const
{
    foreach (QAction* action, m_menu->actions()) {
        if (!id.isEmpty() && action->objectName() == id)
            return action;
    }
    return nullptr;
}

ActionContainer* ActionRegister::createMenu(const QString& id, bool& existed)
{
    MenuContainer*& container = m_menus[id];
    existed = container != nullptr;
    if (!existed)
        container = new MenuContainer(id, this);
    return container;
}

ActionContainer* ActionRegister::menu(const QString& id) { return m_menus.value(id); }

Command* ActionRegister::registerActionPlaceHolder(const QString& id, const QString& user_text,
                                                   const QKeySequence& shortcut,
                                                   const QList<int>& context, const QIcon& icon)
{
    RegisteredCommand*& command = m_commands[id];
    if (!command) {
        QAction* action = new QAction(icon, user_text, nullptr);
        action->setObjectName(id);
        action->setShortcut(shortcut);
        action->setEnabled(Core::ContextRegister::instance()->isAnyActive(context));
        command = new RegisteredCommand(action, this);
    }
    return command;
}

Command* ActionRegister::command(const QString& id) { return m_commands.value(id); }

} // namespace CoreGui
} // namespace Qtilities
