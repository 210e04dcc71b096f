#ifndef HOST_APP_DESIGNCOMMANDS_H
#define HOST_APP_DESIGNCOMMANDS_H

#include <QObject>

class DesignSession;
class DesignView;
class ItemCommands;
class RemakeCommands;
class QAction;
class QMenu;
class QToolBar;
class QUndoGroup;
class QWidget;

namespace OrvanticCore {
class Design;
}

/// The commands on whole designs in the menus File, Edit and Design and in the tool bar. Each acts
/// on the design of the current item, and names it when several are open.
class DesignCommands : public QObject {
    Q_OBJECT

public:
    /// The commands are added to the menus "File", "Edit" and "Design", which must exist, and to
    /// \p toolBar. \p window is the parent of dialogs. Nothing is owned, and all of it must outlive
    /// the commands.
    DesignCommands(DesignSession* session, DesignView* view, ItemCommands* items,
                   const RemakeCommands& remakes, QToolBar* toolBar, QWidget* window);

private:
    void addFileCommands();
    void addEditCommands();
    void refresh();
    void nameDesign(QAction* action, const QString& plain, const QString& named);
    void fillRecentMenu();
    void chooseDesign();
    void archiveCurrent();

    DesignSession* m_session;
    DesignView* m_view;
    ItemCommands* m_items;
    QWidget* m_window;
    QUndoGroup* m_history;
    QMenu* m_recentMenu = nullptr;
    QAction* m_new = nullptr;
    QAction* m_open = nullptr;
    QAction* m_save = nullptr;
    QAction* m_reload = nullptr;
    QAction* m_archive = nullptr;
    QAction* m_close = nullptr;
    QAction* m_lock = nullptr;
};

#endif
