#ifndef HOST_APP_HELPMENU_H
#define HOST_APP_HELPMENU_H

#include <QObject>
#include <QPointer>
#include <QStringList>

class HelpWindow;
class QAction;
class QMainWindow;
class QMenu;

/// The commands of the menu Help: the guide, and what host and plug-ins say of themselves.
class HelpMenu : public QObject {
    Q_OBJECT

public:
    /// \p menu and \p window stay their owners'.
    HelpMenu(QMenu* menu, QMainWindow* window);

    void setPluginFolders(const QStringList& folders) { m_pluginFolders = folders; }

private:
    QAction* addCommand(QMenu* menu, const char* id, const QString& text, void (HelpMenu::*slot)());
    void showGuide();
    void showAbout();
    void showAboutPlugins();

    QMainWindow* m_window;
    QStringList m_pluginFolders;
    QPointer<HelpWindow> m_guide;
};

#endif
