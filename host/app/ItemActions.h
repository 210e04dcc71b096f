#ifndef HOST_APP_ITEMACTIONS_H
#define HOST_APP_ITEMACTIONS_H

#include <QList>
#include <QObject>
#include <QPointer>

class DesignModel;
class DesignView;
class QAction;
class QMenu;
class QToolBar;

/// Shows the actions that extensions have for the current item also in the menu Design and in the
/// tool bar, so that nobody has to look for them in the context menu.
class ItemActions : public QObject {
    Q_OBJECT

public:
    /// All stay their owner's. Actions are inserted at the end of \p menu and \p toolBar.
    ItemActions(DesignModel* model, DesignView* view, QMenu* menu, QToolBar* toolBar);

    /// Asks the extensions again.
    void refresh();

    /// Triggers the first action of the current file. Returns false if it has none.
    bool triggerFirst();

private:
    void show(const QList<QAction*>& actions, const QList<QAction*>& onToolBar);
    void logWhyNothingIsFilledIn();

    DesignModel* m_model;
    DesignView* m_view;
    QMenu* m_menu;
    QToolBar* m_toolBar;
    QAction* m_separator;
    /// Guarded: they belong to extensions, which may delete them.
    QList<QPointer<QAction>> m_shown;
    QList<QPointer<QAction>> m_ofFile;
};

#endif
