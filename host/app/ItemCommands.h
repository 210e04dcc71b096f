#ifndef HOST_APP_ITEMCOMMANDS_H
#define HOST_APP_ITEMCOMMANDS_H

#include <QList>
#include <QObject>
#include <QPointer>

class DesignModel;
class DesignSession;
class DesignView;
class QAction;
class QMenu;
class QModelIndex;
class QToolBar;

/// The commands on the items of the current design. What extensions add to the context menu of the
/// current item is also in the menu Design and in the tool bar, where it is easier to find.
class ItemCommands : public QObject {
    Q_OBJECT

public:
    /// The commands are added to the menu "Design", which must exist. Nothing is owned.
    ItemCommands(DesignSession* session, DesignModel* model, DesignView* view, QToolBar* toolBar);

    QAction* addFiles() const { return m_add; }
    QAction* openFolder() const { return m_openFolder; }
    /// The commands for the context menu of a file or a folder.
    QList<QAction*> ofFile() const;

    /// Enables the commands that the current item has.
    void refresh();

signals:
    void inspectionWanted(const QString& path);

private:
    /// Asks the extensions again what they have for the current item.
    void refreshExtensions();
    void fillMoveMenu();
    void chooseFiles();
    void removeSelected();
    void moveSelected(const QString& node);
    void activate(const QModelIndex& index);
    void inspect();
    void openCurrentFolder();
    void logWhyNothingIsFilledIn();

    DesignSession* m_session;
    DesignModel* m_model;
    DesignView* m_view;
    QToolBar* m_toolBar;
    QAction* m_add;
    QMenu* m_moveMenu;
    QAction* m_remove;
    QAction* m_inspect;
    QAction* m_openFolder;
    QAction* m_separator = nullptr;
    /// The actions of extensions, which may delete them at any time. Not owned.
    QList<QPointer<QAction>> m_shown;
    QList<QPointer<QAction>> m_ofFile;
};

#endif
