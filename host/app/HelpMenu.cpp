#include "host/app/HelpMenu.h"

#include "host/app/Commands.h"
#include "host/app/common/PlainMessageBox.h"
#include "host/app/GuideWindow.h"
#include "host/app/PluginList.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>

HelpMenu::HelpMenu(QMainWindow* window) : QObject(window), m_window(window)
{
    QAction* const guide = Commands::add("Help.Guide", tr("&Guide"), QKeySequence::HelpContents,
                                         this, [this] { showGuide(); });
    // Windows of plug-ins have no help of their own, so that the key works in them, too.
    guide->setShortcutContext(Qt::ApplicationShortcut);
    Commands::menu("Help")->addSeparator();
    Commands::add("Help.About", tr("&About Pelk Design Host"), QKeySequence(), this,
                  [this] { showAbout(); });
    Commands::add("Help.AboutPlugins", tr("About &Plug-ins"), QKeySequence(), this,
                  [this] { PluginList::showAbout(m_pluginFolders, m_window); });
}

void HelpMenu::showGuide()
{
    if (!m_guide)
        m_guide = new GuideWindow(m_window);
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
