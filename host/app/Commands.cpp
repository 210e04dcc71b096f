#include "host/app/Commands.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QAction>
#include <QApplication>
#include <QMenu>

using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;

QMenu* Commands::menu(const QString& id)
{
    return QtilitiesApplication::actionManager()->menu(id)->menu();
}

QAction* Commands::add(const QString& id, const QString& text, const QKeySequence& shortcut,
                       QObject* receiver, const std::function<void()>& slot)
{
    auto* const manager = QtilitiesApplication::actionManager();
    Command* const command = manager->registerActionPlaceHolder(id, text, shortcut);
    manager->menu(id.section('.', 0, 0))->addAction(command);
    QObject::connect(command->action(), &QAction::triggered, receiver, slot);
    return command->action();
}

QIcon Commands::icon(QStyle::StandardPixmap pixmap)
{
    return QApplication::style()->standardIcon(pixmap);
}
