#include "plugin/RecordedFramework.h"

#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QIcon>
#include <QMap>

using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Interfaces::IContextManager;
using Qtilities::Core::Interfaces::IObjectManager;
using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::Interfaces::IActionManager;

namespace {

const int ContextNumber = 4711;

void note(const QString& call) { RecordedFramework::calls() << call; }

class RecordedPool : public IObjectManager {
public:
    void registerObject(QObject* object, QtilitiesCategory category) override
    {
        note(QString::fromLatin1("register %1 \"%2\" in category \"%3\", %4")
                 .arg(QLatin1String(object->metaObject()->className()), object->objectName(),
                      category.toString(),
                      QLatin1String(object->parent() ? "a child" : "no child")));
        m_objects << object;
    }
    void removeObject(QObject*) override { note(QLatin1String("remove from the pool")); }
    QList<QObject*> registeredInterfaces(const QString& iface) const override
    {
        QList<QObject*> objects;
        foreach (const QPointer<QObject>& object, m_objects) {
            if (object && object->qt_metacast(iface.toLatin1().constData()))
                objects << object;
        }
        return objects;
    }

private:
    QList<QPointer<QObject>> m_objects;
};

class RecordedContexts : public IContextManager {
public:
    int contextID(const QString& name) override
    {
        note(QLatin1String("context ") + name);
        return ContextNumber;
    }
};

class RecordedCommand : public Command {
public:
    explicit RecordedCommand(QObject* parent) : Command(parent), m_action(new QAction(this)) {}
    QAction* action() const override { return m_action; }
    QString text() const override { return m_action->text(); }

private:
    QAction* m_action;
};

class RecordedMenu : public ActionContainer {
public:
    explicit RecordedMenu(QObject* parent) : ActionContainer(parent) {}
    QMenu* menu() const override { return nullptr; }
    void addAction(Command* command, const QString& before) override
    {
        note(QString::fromLatin1("add %1 before \"%2\"").arg(command->text(), before));
    }
    void addSeparator(const QString& before) override
    {
        note(QString::fromLatin1("add a separator before \"%1\"").arg(before));
    }
};

class RecordedActions : public IActionManager {
public:
    RecordedActions() : m_menu(new RecordedMenu(this)), m_command(nullptr) {}

    ActionContainer* createMenu(const QString& id, bool& existed) override
    {
        note(QLatin1String("menu ") + id);
        existed = true;
        return m_menu;
    }
    ActionContainer* menu(const QString& id) override
    {
        note(QLatin1String("another menu ") + id);
        return nullptr;
    }
    Command* registerActionPlaceHolder(const QString& id, const QString& text,
                                       const QKeySequence& shortcut, const QList<int>& contexts,
                                       const QIcon& icon) override
    {
        QStringList numbers;
        foreach (int context, contexts)
            numbers << QString::number(context);
        note(QString::fromLatin1("command %1 \"%2\" shortcut \"%3\" in contexts %4, %5")
                 .arg(id, text, shortcut.toString(), numbers.join(QLatin1String(", ")),
                      QLatin1String(icon.isNull() ? "no icon" : "an icon")));
        if (!m_command)
            m_command = new RecordedCommand(this);
        m_command->action()->setText(text);
        return m_command;
    }
    Command* command(const QString&) override { return m_command; }

private:
    RecordedMenu* m_menu;
    RecordedCommand* m_command;
};

QPointer<IActionManager>& actions()
{
    static QPointer<IActionManager> manager;
    return manager;
}

RecordedPool* recordedPool()
{
    static RecordedPool* const manager = new RecordedPool;
    return manager;
}

RecordedContexts* recordedContexts()
{
    static RecordedContexts contexts;
    return &contexts;
}

} // namespace

QStringList& RecordedFramework::calls()
{
    static QStringList calls;
    return calls;
}

QList<QObject*> RecordedFramework::pool()
{
    return recordedPool()->registeredInterfaces(QLatin1String("QObject"));
}

QAction* RecordedFramework::command()
{
    Command* const command = actions() ? actions()->command(QString()) : nullptr;
    return command ? command->action() : nullptr;
}

void RecordedFramework::reset() { delete actions(); }

// The program's own definitions come before those of the framework's library.
namespace Qtilities {

IObjectManager* Core::QtilitiesCoreApplication::objectManager() { return recordedPool(); }

IContextManager* Core::QtilitiesCoreApplication::contextManager() { return recordedContexts(); }

IActionManager* CoreGui::QtilitiesApplication::actionManager()
{
    if (!actions())
        actions() = new RecordedActions;
    return actions();
}

IObjectManager* CoreGui::QtilitiesApplication::objectManager()
{
    note(QLatin1String("the pool of the wrong application"));
    return recordedPool();
}

IContextManager* CoreGui::QtilitiesApplication::contextManager()
{
    note(QLatin1String("the contexts of the wrong application"));
    return recordedContexts();
}

} // namespace Qtilities
