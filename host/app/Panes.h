#ifndef HOST_APP_PANES_H
#define HOST_APP_PANES_H

#include <QList>
#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class QWidget;

/// Takes the keyboard to the panes of a window: the one in the centre, and the docks around it.
class Panes : public QObject {
    Q_OBJECT

public:
    /// \p docks are in the order in which the keys go through them. Nothing is owned.
    Panes(QMainWindow* window, QList<QDockWidget*> docks);

    /// The menu with an entry for each pane and for the next ones. Owned by the window.
    QMenu* makeMenu();

    /// Opens \p dock, brings it to the front and gives it the keyboard. Returns whether anything in
    /// it takes that.
    bool goTo(QDockWidget* dock);

signals:
    /// \p dock was closed, and is open now.
    void opened(QDockWidget* dock);

private:
    void addKey(QMenu* menu, const char* name, const QString& text, const QString& key,
                void (Panes::*go)(int), int step);
    bool goToCentre();
    /// Goes to the pane that is \p step panes further in the circle of those that are open.
    void goToPane(int step);
    /// The same for the tabs of the dock that has the keyboard, or of the first one with tabs.
    void goToTab(int step);
    /// The index of the dock that has the keyboard, or -1.
    int currentDock() const;
    QList<QDockWidget*> tabsOf(QDockWidget* dock) const;

    QMainWindow* m_window;
    QList<QDockWidget*> m_docks;
};

#endif
