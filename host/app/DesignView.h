#ifndef HOST_APP_DESIGNVIEW_H
#define HOST_APP_DESIGNVIEW_H

#include <QSet>
#include <QTreeView>

class DesignModel;
class QMenu;

namespace OrvanticCore {
class Design;
class DesignFile;
} // namespace OrvanticCore

/// Shows the open designs. The menus of its files and designs begin with what extensions add.
class DesignView : public QTreeView {
    Q_OBJECT

public:
    /// \p model stays its owner's.
    explicit DesignView(DesignModel* model, QWidget* parent = nullptr);

    /// The host's own actions in the menus of files and folders, and of designs and nodes.
    void setMenuActions(const QList<QAction*>& forFiles, const QList<QAction*>& forDesigns);

    /// The design of the current item, or the first one; null when none is open.
    OrvanticCore::Design* currentDesign() const;
    void setCurrentDesign(const OrvanticCore::Design* design);

    /// The design at a place in the view's coordinates, or null.
    OrvanticCore::Design* designAt(const QPoint& place) const;

    /// Selects the first of \p files, and makes all of them visible.
    void showFiles(const QList<OrvanticCore::DesignFile*>& files);

signals:
    void currentItemChanged();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
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
    /// Keys of the rows that the user has folded, and of the current one.
    QSet<QString> m_collapsed;
    QString m_currentKey;
};

#endif
