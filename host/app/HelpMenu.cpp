#include "host/app/HelpMenu.h"

#include "host/app/common/PlainMessageBox.h"
#include "host/app/HelpWindow.h"
#include "host/app/PluginList.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>

HelpMenu::HelpMenu(QMenu* menu, QMainWindow* window) : QObject(window), m_window(window)
{
    QAction* const guide = addCommand(menu, "Help.Guide", tr("&Guide"), &HelpMenu::showGuide);
    menu->addSeparator();
    addCommand(menu, "Help.About", tr("&About Pelk Design Host"), &HelpMenu::showAbout);
    addCommand(menu, "Help.AboutPlugins", tr("About &Plug-ins"), &HelpMenu::showAboutPlugins);
    guide->setShortcut(QKeySequence::HelpContents);
    // Windows of plug-ins have no help of their own.
    guide->setShortcutContext(Qt::ApplicationShortcut);
}

QAction* HelpMenu::addCommand(QMenu* menu, const char* id, const QString& text,
                              void (HelpMenu::*slot)())
{
    // Of this object: the menus of the action manager outlive the window.
    auto* const action = new QAction(text, this);
    action->setObjectName(id);
    connect(action, &QAction::triggered, this, slot);
    menu->addAction(action);
    return action;
}

void HelpMenu::showGuide()
{
    if (!m_guide)
        m_guide = new HelpWindow(m_window);
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

void HelpMenu::showAbout()
{
    PlainMessageBox box(QMessageBox::NoIcon, tr("About Pelk Design Host"),
                        tr("Pelk Design Host %1\n\nA small host in which plug-ins for designs of "
                           "the Pelk radar signal processor run.\n\nQt %2")
                            .arg(QCoreApplication::applicationVersion(), qVersion()),
                        QMessageBox::Ok, QMessageBox::Ok, m_window);
    box.setObjectName("AboutBox");
    box.setIconPixmap(m_window->windowIcon().pixmap(64));
    box.exec();
}

void HelpMenu::showAboutPlugins() { PluginList::showAbout(m_pluginFolders, m_window); }
