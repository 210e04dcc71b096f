#ifndef HOST_APP_HELPMENU_H
#define HOST_APP_HELPMENU_H

#include <QObject>
#include <QPointer>
#include <QStringList>

class QMainWindow;

/// The commands of the menu Help: the guide, and what host and plug-ins report of themselves.
class HelpMenu : public QObject {
    Q_OBJECT

public:
    /// The menu "Help" must exist. \p window is not owned.
    explicit HelpMenu(QMainWindow* window);

    void setPluginFolders(const QStringList& folders) { m_pluginFolders = folders; }

private:
    void showGuide();
    void showAbout();

    QMainWindow* m_window;
    QStringList m_pluginFolders;
    QPointer<QMainWindow> m_guide;
};

#endif
