#include "e2e/UserActions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTextEdit>
#include <QTreeView>
#include <QtTest>
#include <QWindow>

namespace {

QAction* entryOf(const QWidget* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (action->text().remove('&') == text)
            return action;
    }
    throw StepFailed("There is no menu entry \"" + text + "\".");
}

void choose(QMenu* menu, const QString& entry)
{
    UserActions::require(QTest::qWaitForWindowExposed(menu, UserActions::TimeoutMs),
                         "A menu did not open.");
    QAction* const action = entryOf(menu, entry);
    UserActions::require(action->isEnabled(), "The menu entry \"" + entry + "\" is disabled.");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
}

QModelIndex itemOf(const QTreeView* view, const QString& text)
{
    const QAbstractItemModel* const model = view->model();
    const QModelIndexList items = model->match(
        model->index(0, 0), Qt::DisplayRole, text, 1,
        Qt::MatchFlags(Qt::MatchStartsWith | Qt::MatchCaseSensitive | Qt::MatchRecursive));
    UserActions::require(!items.isEmpty(), "The view does not show \"" + text + "\".");
    return items.first();
}

} // namespace

void UserActions::require(bool condition, const QString& complaint)
{
    if (!condition)
        throw StepFailed(complaint);
}

QWidget* UserActions::window(const QString& name)
{
    QWidget* found = nullptr;
    const bool shown = QTest::qWaitFor(
        [&] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (widget->objectName() == name && widget->isVisible())
                    found = widget;
            }
            return found != nullptr;
        },
        TimeoutMs);
    require(shown && QTest::qWaitForWindowExposed(found, TimeoutMs),
            "There is no window \"" + name + "\".");
    return found;
}

void UserActions::click(const QWidget* window, const char* button)
{
    QTest::mouseClick(find<QAbstractButton>(window, button), Qt::LeftButton);
}

void UserActions::type(const QWidget* window, const char* field, const QString& text)
{
    auto* const edit = find<QLineEdit>(window, field);
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, text);
}

void UserActions::write(const QWidget* window, const char* memo, const QString& text)
{
    auto* const edit = find<QTextEdit>(window, memo);
    QTest::mouseClick(edit->viewport(), Qt::LeftButton);
    for (const QChar letter : text) {
        if (letter == '\n')
            QTest::keyClick(edit, Qt::Key_Return);
        else
            QTest::keyClick(edit, letter.toLatin1());
    }
}

void UserActions::select(const QWidget* window, const char* comboBox, const QString& text)
{
    auto* const box = find<QComboBox>(window, comboBox);
    QTest::keyClick(box, Qt::Key_Home);
    for (int steps = 0; steps < box->count() && box->currentText() != text; ++steps)
        QTest::keyClick(box, Qt::Key_Down);
    require(box->currentText() == text,
            QString("\"%1\" does not offer \"%2\".").arg(comboBox, text));
}

void UserActions::chooseFromMenuBar(QWidget* window, const QString& menu, const QString& entry)
{
    QMenuBar* const bar = qobject_cast<QMainWindow*>(window)->menuBar();
    QAction* const title = entryOf(bar, menu);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(title).center());
    choose(title->menu(), entry);
}

void UserActions::chooseFromContextMenu(const QTreeView* view, const QString& item,
                                        const QString& entry)
{
    const QPoint place = view->visualRect(itemOf(view, item)).center();
    QWidget* const window = view->window();
    // Through the window, which makes a context menu event of the click.
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      view->viewport()->mapTo(window, place));
    require(QTest::qWaitFor([] { return QApplication::activePopupWidget(); }, TimeoutMs),
            "\"" + item + "\" has no context menu.");
    choose(qobject_cast<QMenu*>(QApplication::activePopupWidget()), entry);
}

QStringList UserActions::row(const QTreeView* view, const QString& item)
{
    const QModelIndex index = itemOf(view, item);
    QStringList texts;
    for (int number = 0; number < view->model()->columnCount(); ++number)
        texts << index.siblingAtColumn(number).data().toString();
    return texts;
}

QStringList UserActions::column(const QTreeView* view, int column)
{
    QStringList texts;
    for (int number = 0; number < view->model()->rowCount(); ++number)
        texts << view->model()->index(number, column).data().toString();
    return texts;
}
