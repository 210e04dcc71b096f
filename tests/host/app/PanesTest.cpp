#include "host/app/HostFixture.h"

#include <QApplication>
#include <QDockWidget>
#include <QtTest>

namespace {

class PanesHost : public HostFixture {
public:
    PanesHost()
    {
        openDesign("radar");
        activate();
        view()->setFocus();
    }

    QDockWidget* dock(const char* name) const { return child<QDockWidget>(name); }
    void open(const char* name) const { dock(name)->show(); }

    /// The pane that has the keyboard.
    QString pane() const
    {
        const QWidget* widget = QApplication::focusWidget();
        while (widget && !qobject_cast<const QDockWidget*>(widget)) {
            if (widget == window()->centralWidget())
                return "Centre";
            widget = widget->parentWidget();
        }
        return widget ? widget->objectName() : QString("none");
    }

    /// The panes that get the keyboard when a key is pressed \p count times.
    QStringList panes(Qt::Key key, Qt::KeyboardModifiers modifiers, int count) const
    {
        QStringList names;
        for (int time = 0; time < count; ++time) {
            press(key, modifiers);
            names << pane();
        }
        return names;
    }
};

QStringList repeatedLetters(const QMenu* menu)
{
    QStringList letters;
    QStringList repeated;
    for (const QAction* action : menu->actions()) {
        const QString letter = QKeySequence::mnemonic(action->text()).toString();
        if (action->isSeparator())
            continue;
        if (letter.isEmpty() || letters.contains(letter))
            repeated << action->text();
        letters << letter;
    }
    return repeated;
}

} // namespace

/// The ways of the keyboard to the panes of the window.
class PanesTest : public QObject {
    Q_OBJECT

private slots:
    void goesToEachPaneByAKey();
    void goesAroundThePanesThatAreOpen();
    void goesThroughTabs();
    void goesToAPaneThatFloats();
    void hasALetterForEveryEntryOfTheMenu();
    void givesTheHeaderPageRoom();
};

void PanesTest::goesToEachPaneByAKey()
{
    const PanesHost host;
    // The image and the header page are closed, and the keys open them.
    const QStringList panes{"Centre", "PropertyDock", "InspectorDock", "LogDock", "PageDock"};
    for (int round = 0; round < 2; ++round) {
        for (int index = 0; index < panes.size(); ++index) {
            host.press(Qt::Key(Qt::Key_1 + index), Qt::ControlModifier);
            QCOMPARE(host.pane(), panes.at(index));
            if (index == 0)
                QVERIFY(host.view()->hasFocus());
            else
                QVERIFY(!host.dock(qPrintable(panes.at(index)))->visibleRegion().isEmpty());
        }
    }
}

void PanesTest::goesAroundThePanesThatAreOpen()
{
    const PanesHost host;
    QCOMPARE(host.panes(Qt::Key_F6, {}, 4),
             QStringList({"PropertyDock", "LogDock", "Centre", "PropertyDock"}));
    QVERIFY(host.child<QWidget>("propertyArea")->isEnabled());
    host.open("PageDock");
    host.open("InspectorDock");
    QCOMPARE(host.panes(Qt::Key_F6, {}, 4),
             QStringList({"InspectorDock", "LogDock", "PageDock", "Centre"}));
    QCOMPARE(host.panes(Qt::Key_F6, Qt::ShiftModifier, 5),
             QStringList({"PageDock", "LogDock", "InspectorDock", "PropertyDock", "Centre"}));
}

void PanesTest::goesThroughTabs()
{
    const PanesHost host;
    // There are no tabs yet.
    QCOMPARE(host.panes(Qt::Key_Tab, Qt::ControlModifier, 1), QStringList("Centre"));
    host.open("InspectorDock");
    host.press(Qt::Key_3, Qt::ControlModifier);
    QCOMPARE(host.panes(Qt::Key_Tab, Qt::ControlModifier, 3),
             QStringList({"PropertyDock", "InspectorDock", "PropertyDock"}));

    host.press(Qt::Key_5, Qt::ControlModifier);
    QCOMPARE(host.panes(Qt::Key_Tab, Qt::ControlModifier, 2), QStringList({"LogDock", "PageDock"}));
    QCOMPARE(host.panes(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 2),
             QStringList({"LogDock", "PageDock"}));
}

void PanesTest::goesToAPaneThatFloats()
{
    const PanesHost host;
    host.dock("LogDock")->setFloating(true);
    host.press(Qt::Key_4, Qt::ControlModifier);
    QTRY_COMPARE(host.pane(), QString("LogDock"));
    QVERIFY(host.dock("LogDock")->isFloating());
    host.press(Qt::Key_1, Qt::ControlModifier);
    QTRY_COMPARE(host.pane(), QString("Centre"));
}

void PanesTest::hasALetterForEveryEntryOfTheMenu()
{
    const PanesHost host;
    QMenu* const menu = host.menu("View");
    QCOMPARE(repeatedLetters(menu), QStringList());
    menu->close();
    QCOMPARE(repeatedLetters(host.child<QMenu>("GoToMenu")), QStringList());
}

void PanesTest::givesTheHeaderPageRoom()
{
    const PanesHost host;
    const int before = host.dock("LogDock")->height();
    host.press(Qt::Key_5, Qt::ControlModifier);
    const QDockWidget* const page = host.dock("PageDock");
    QTRY_VERIFY(page->height() > before);

    // A user who makes it smaller again has it so, whatever is in front.
    host.window()->resizeDocks({host.dock("PageDock")}, {before - 20}, Qt::Vertical);
    QTRY_VERIFY(page->height() < before);
    host.press(Qt::Key_4, Qt::ControlModifier);
    host.press(Qt::Key_5, Qt::ControlModifier);
    QVERIFY(page->height() < before);
}

HOST_TEST(PanesTest)

#include "PanesTest.moc"
