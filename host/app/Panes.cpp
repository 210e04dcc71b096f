#include "host/app/Panes.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

namespace {

bool isOpen(const QDockWidget* dock) { return dock->toggleViewAction()->isChecked(); }

/// A dock behind another tab is disabled.
bool isInFront(const QDockWidget* dock) { return isOpen(dock) && dock->widget()->isEnabled(); }

bool takesKeys(const QWidget* widget, const QWidget* pane)
{
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() &&
           widget->isVisibleTo(pane) && (widget == pane || pane->isAncestorOf(widget));
}

/// Gives the keyboard to the widget of \p pane that had it last, or to the first one that takes it.
/// Returns whether there is one.
bool focusIn(QWidget* pane)
{
    QWidget* const preferred = pane->focusProxy() ? pane->focusProxy() : pane;
    QWidget* widget = pane->focusWidget() ? pane->focusWidget() : preferred;
    const QWidget* const first = widget;
    do {
        if (takesKeys(widget, pane)) {
            widget->setFocus(Qt::ShortcutFocusReason);
            return true;
        }
        widget = widget->nextInFocusChain();
    } while (widget != first);
    return false;
}

} // namespace

Panes::Panes(QMainWindow* window, QList<QDockWidget*> docks)
    : QObject(window), m_window(window), m_docks(std::move(docks))
{
    // A pane behind another tab has no keys: a menu of its own would come up at the edge.
    for (QDockWidget* dock : m_docks) {
        connect(dock, &QDockWidget::visibilityChanged, dock->widget(), &QWidget::setEnabled);
        connect(dock->toggleViewAction(), &QAction::triggered, this, [this, dock](bool open) {
            if (open)
                emit opened(dock);
        });
    }
}

QMenu* Panes::makeMenu()
{
    auto* const menu = new QMenu(tr("&Go To"), m_window);
    menu->setObjectName("GoToMenu");
    QAction* const centre = menu->addAction(tr("&Designs"));
    centre->setObjectName("View.GoTo.Designs");
    centre->setShortcut(QKeySequence("Ctrl+1"));
    connect(centre, &QAction::triggered, this, [this] { goToCentre(); });

    for (int index = 0; index < m_docks.size(); ++index) {
        QDockWidget* const dock = m_docks.at(index);
        QAction* const action = menu->addAction(dock->toggleViewAction()->text());
        action->setObjectName("View.GoTo." + dock->objectName());
        action->setShortcut(QKeySequence(QString("Ctrl+%1").arg(index + 2)));
        connect(action, &QAction::triggered, this, [this, dock] { goTo(dock); });
    }

    menu->addSeparator();
    addKey(menu, "View.NextPane", tr("&Next Pane"), "F6", &Panes::goToPane, 1);
    addKey(menu, "View.PreviousPane", tr("Pre&vious Pane"), "Shift+F6", &Panes::goToPane, -1);
    addKey(menu, "View.NextTab", tr("Next &Tab"), "Ctrl+Tab", &Panes::goToTab, 1);
    addKey(menu, "View.PreviousTab", tr("Previous Ta&b"), "Ctrl+Shift+Tab", &Panes::goToTab, -1);
    return menu;
}

void Panes::addKey(QMenu* menu, const char* name, const QString& text, const QString& key,
                   void (Panes::*go)(int), int step)
{
    QAction* const action = menu->addAction(text);
    action->setObjectName(name);
    action->setShortcut(QKeySequence(key));
    connect(action, &QAction::triggered, this, [this, go, step] { (this->*go)(step); });
}

bool Panes::goTo(QDockWidget* dock)
{
    const bool wasOpen = isOpen(dock);
    dock->show();
    dock->raise();
    if (!wasOpen)
        emit opened(dock);
    // The dock reports that it is visible only when it is shown.
    dock->widget()->setEnabled(true);
    if (dock->isFloating())
        dock->activateWindow();
    return focusIn(dock->widget());
}

bool Panes::goToCentre()
{
    // A pane that floats is a window of its own.
    m_window->activateWindow();
    return focusIn(m_window->centralWidget());
}

void Panes::goToPane(int step)
{
    // The centre comes before the first dock.
    const int count = static_cast<int>(m_docks.size()) + 1;
    const int current = currentDock() + 1;
    for (int distance = 1; distance < count; ++distance) {
        const int pane = (current + count + step * distance) % count;
        QDockWidget* const dock = m_docks.value(pane - 1);
        const bool isReached = dock ? isOpen(dock) && goTo(dock) : goToCentre();
        if (isReached)
            return;
    }
}

void Panes::goToTab(int step)
{
    QList<QDockWidget*> tabs;
    if (currentDock() >= 0)
        tabs = tabsOf(m_docks.at(currentDock()));
    for (int dock = 0; dock < m_docks.size() && tabs.size() < 2; ++dock)
        tabs = tabsOf(m_docks.at(dock));
    if (tabs.size() < 2)
        return;

    for (int tab = 0; tab < tabs.size(); ++tab) {
        if (!isInFront(tabs.at(tab)))
            continue;
        goTo(tabs.at((tab + tabs.size() + step) % tabs.size()));
        return;
    }
}

int Panes::currentDock() const
{
    for (int dock = 0; dock < m_docks.size(); ++dock) {
        if (m_docks.at(dock)->isAncestorOf(QApplication::focusWidget()))
            return dock;
    }
    return -1;
}

QList<QDockWidget*> Panes::tabsOf(QDockWidget* dock) const
{
    const QList<QDockWidget*> others = m_window->tabifiedDockWidgets(dock);
    QList<QDockWidget*> tabs;
    for (QDockWidget* each : m_docks) {
        if (isOpen(each) && (each == dock || others.contains(each)))
            tabs << each;
    }
    return tabs;
}
