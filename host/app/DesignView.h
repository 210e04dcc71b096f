#ifndef HOST_APP_DESIGNVIEW_H
#define HOST_APP_DESIGNVIEW_H

#include <QSet>
#include <QTreeView>

class DesignModel;
class QMenu;

namespace OrvanticCore {
class Design;
class DesignFile;
class DesignFolder;
} // namespace OrvanticCore

/// Shows the open designs. The menus of its files and designs begin with what extensions add.
class DesignView : public QTreeView {
    Q_OBJECT

public:
    /// \p model is not owned.
    explicit DesignView(DesignModel* model, QWidget* parent = nullptr);

    /// The host's own actions in the menus of files and folders, and of designs and nodes.
    void setFileActions(const QList<QAction*>& actions) { m_fileActions = actions; }
    void setDesignActions(const QList<QAction*>& actions) { m_designActions = actions; }

    /// The design of the current item; null when there is no current item and not exactly one
    /// design is open.
    OrvanticCore::Design* currentDesign() const;
    void setCurrentDesign(const OrvanticCore::Design* design);

    /// The selected files and folders of the current design.
    QList<OrvanticCore::DesignFile*> selectedFiles() const;
    QList<OrvanticCore::DesignFolder*> selectedFolders() const;

    /// The item at a place in the view's coordinates, or an invalid index.
    QModelIndex itemAt(const QPoint& place) const;

    /// Selects the first of \p files, and makes all of them visible.
    void showFiles(const QList<OrvanticCore::DesignFile*>& files);

signals:
    void currentItemChanged();
    /// A context menu has asked the extensions for its actions.
    void menuShown();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;

private:
    template <class Subject>
    QList<Subject*> selected() const;
    void showMenu(const QPoint& place);
    /// The middle of the current row, which is made visible.
    QPoint placeOfCurrent();
    QMenu* makeMenu(const QModelIndex& index);
    void rememberRows();
    void restoreRows();
    QString keyOf(const QModelIndex& index) const;

    DesignModel* m_model;
    QList<QAction*> m_fileActions;
    QList<QAction*> m_designActions;
    /// Keys of the rows that the user has folded.
    QSet<QString> m_collapsed;
    /// Keys of the current row and of those that become current when it is gone: its neighbours,
    /// the next ones first, and its parent.
    QStringList m_currentKeys;
};

#endif
