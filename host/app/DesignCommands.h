#ifndef HOST_APP_DESIGNCOMMANDS_H
#define HOST_APP_DESIGNCOMMANDS_H

#include <QKeySequence>
#include <QObject>
#include <QStyle>

class DesignModel;
class DesignSession;
class DesignView;
class ItemActions;
class OpenDesigns;
class QAction;
class QMenu;
class QModelIndex;
class QToolBar;
class QUndoGroup;
class QWidget;

namespace OrvanticCore {
class Design;
}

/// The commands of the menus File, Edit and Design and of the tool bar. Each acts on the design of
/// the current item, and names it when several are open.
///
/// For drivers: the object names of the actions are the commands' identifiers.
class DesignCommands : public QObject {
    Q_OBJECT

public:
    /// Everything stays its owner's and outlives the commands. \p window is the parent of dialogs.
    DesignCommands(OpenDesigns* designs, DesignSession* session, DesignModel* model,
                   DesignView* view, QWidget* window);

    /// Adds the commands to the menus "File", "Edit" and "Design", which must exist, and to
    /// \p toolBar.
    void addTo(QToolBar* toolBar);

    void newDesign();
    void chooseDesign();

signals:
    void inspectionWanted(const QString& path);

private:
    using Slot = void (DesignCommands::*)();

    QAction* addCommand(const QString& menu, const QString& id, const QString& text,
                        const QKeySequence& shortcut, Slot slot);
    QMenu* addMenu(const QString& menu, const QString& text);
    void addFileCommands();
    void addEditCommands();
    void addDesignCommands();
    static void setIcon(QAction* action, QStyle::StandardPixmap pixmap);
    void refresh();
    void nameDesign(QAction* action, const QString& plain, const QString& named);
    void fillRecentMenu();
    void fillMoveMenu();

    void saveCurrent();
    void reloadCurrent();
    void archiveCurrent();
    void closeCurrent();
    void addFiles();
    void removeSelected();
    void moveSelected(const QString& node);
    void activate(const QModelIndex& index);
    void inspect();
    void openFolder();
    void setLocked(bool locked);

    OpenDesigns* m_designs;
    DesignSession* m_session;
    DesignModel* m_model;
    DesignView* m_view;
    QWidget* m_window;
    QUndoGroup* m_history;
    ItemActions* m_itemActions = nullptr;
    QMenu* m_recentMenu = nullptr;
    QMenu* m_moveMenu = nullptr;

    QAction* m_new = nullptr;
    QAction* m_open = nullptr;
    QAction* m_save = nullptr;
    QAction* m_reload = nullptr;
    QAction* m_archive = nullptr;
    QAction* m_close = nullptr;
    QAction* m_add = nullptr;
    QAction* m_remove = nullptr;
    QAction* m_inspect = nullptr;
    QAction* m_openFolder = nullptr;
    QAction* m_lock = nullptr;
};

#endif
