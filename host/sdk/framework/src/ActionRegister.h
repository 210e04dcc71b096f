#ifndef FRAMEWORK_ACTIONREGISTER_H
#define FRAMEWORK_ACTIONREGISTER_H

#include <QtilitiesCoreGui/IActionManager.h>

#include <QMap>

namespace Qtilities {
namespace CoreGui {

class RegisteredCommand : public Command {
    Q_OBJECT

public:
    RegisteredCommand(QAction* action, QObject* parent);

    QAction* action() const override;
    QString text() const override;

private:
    QAction* m_action;
};

class MenuContainer : public ActionContainer {
    Q_OBJECT

public:
    explicit MenuContainer(const QString& title, QObject* parent);
    ~MenuContainer() override;

    QMenu* menu() const override;
    void addAction(Command* command, const QString& before) override;
    void addSeparator(const QString& before) override;

private:
    /// The action of the command named \p id if it is in this menu, else null, which Qt's
    /// menus take for the end.
    QAction* placedAction(const QString& id) const;

    QMenu* m_menu;
};

class ActionRegister : public Interfaces::IActionManager {
    Q_OBJECT

public:
    explicit ActionRegister(QObject* parent) : IActionManager(parent) {}

    ActionContainer* createMenu(const QString& id, bool& existed) override;
    ActionContainer* menu(const QString& id) override;
    Command* registerActionPlaceHolder(const QString& id, const QString& user_text,
                                       const QKeySequence& shortcut, const QList<int>& context,
                                       const QIcon& icon) override;
    Command* command(const QString& id) override;

private:
    QMap<QString, MenuContainer*> m_menus;
    QMap<QString, RegisteredCommand*> m_commands;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
