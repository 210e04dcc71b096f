#include "host/app/DesignStorage.h"
#include "host/app/HostFixture.h"
#include "host/app/SampleImage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QtTest>
#include <QWheelEvent>
#include <QWindow>

using OrvanticCore::Design;

namespace {

void wheelDown(QWidget* over)
{
    const QPoint place = over->rect().center();
    QWheelEvent event(place, over->mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    // As one from the mouse, which goes on to the parents.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(over, &event);
}

void generate(const HostFixture& host)
{
    QVERIFY(HostFixture::choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(HostFixture::generator());
    HostFixture::generator()->findChild<QLineEdit*>("AuthoEditBox")->setText("R. Vos");
    auto* const slot = HostFixture::generator()->findChild<QWidget*>("ConfigComboBox");
    QTest::keyClick(slot, Qt::Key_Down);
    QTest::mouseClick(HostFixture::generator()->findChild<QPushButton*>("GenerateButton"),
                      Qt::LeftButton);
    QTRY_VERIFY(!HostFixture::generator());
}

} // namespace

/// What a slip of a hand does, and how it is taken back.
class AccidentsTest : public QObject {
    Q_OBJECT

private slots:
    void beginsWithTheKeyboardInTheTree();
    void scrollsWithTheWheelOverABox();
    void undoesVersionAndChanges();
    void undoesWhatTheGeneratorSetAsOneStep();
    void undoesEachStepExactly();
    void callsAMoveAMove();
    void saysThatSeveralDesignsAreOpen();
    void opensNoMenuOfAPaneBehindAnother();
};

void AccidentsTest::beginsWithTheKeyboardInTheTree()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.activate();
    QTRY_COMPARE(QApplication::focusWidget(), host.view());
    QTest::keyClick(host.window()->windowHandle(), Qt::Key_0);
    QCOMPARE(design->versionString("."), QString("1.4"));
}

void AccidentsTest::scrollsWithTheWheelOverABox()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.window()->resize(700, 300);
    host.activate();
    auto* const minor = host.child<QSpinBox>("VersionMinor");
    QScrollBar* const bar = host.child<QScrollArea>("propertyArea")->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), 0);

    wheelDown(minor);
    QCOMPARE(design->versionString("."), QString("1.4"));
    QVERIFY(!minor->hasFocus());
    QVERIFY(bar->value() > 0);

    minor->setFocus();
    wheelDown(minor);
    QCOMPARE(design->versionString("."), QString("1.3"));
}

void AccidentsTest::undoesVersionAndChanges()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.activate();
    auto* const minor = host.child<QSpinBox>("VersionMinor");
    minor->setFocus();
    QTest::keyClick(minor, Qt::Key_Up);
    host.child<QPlainTextEdit>("VersionChanges")->setPlainText("Faster");
    QCOMPARE(design->versionString("."), QString("1.5"));

    auto* const undo = host.child<QAction>("Edit.Undo");
    QCOMPARE(undo->text(), QString("&Undo Change Text of Changes"));
    undo->trigger();
    QCOMPARE(design->versionChanges(), QString("Clock corrected"));
    QCOMPARE(host.child<QPlainTextEdit>("VersionChanges")->toPlainText(),
             QString("Clock corrected"));
    QCOMPARE(undo->text(), QString("&Undo Change Version"));
    undo->trigger();
    QCOMPARE(minor->value(), 4);
    QVERIFY(!undo->isEnabled());
    host.child<QAction>("Edit.Redo")->trigger();
    QCOMPARE(design->versionString("."), QString("1.5"));
}

void AccidentsTest::undoesWhatTheGeneratorSetAsOneStep()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    const QByteArray before = DesignStorage::text(*design);
    generate(host);
    const QByteArray generated = DesignStorage::text(*design);
    QVERIFY(generated != before);
    QCOMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(4));

    auto* const undo = host.child<QAction>("Edit.Undo");
    QCOMPARE(undo->text(), QString("&Undo Generate"));
    undo->trigger();
    QCOMPARE(DesignStorage::text(*design), before);
    QVERIFY(!undo->isEnabled());
    QVERIFY(!host.bytesOf("radar/top.fcf").isEmpty());
    host.child<QAction>("Edit.Redo")->trigger();
    QCOMPARE(DesignStorage::text(*design), generated);
}

void AccidentsTest::undoesEachStepExactly()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    QList<QByteArray> texts{DesignStorage::text(*design)};
    design->setDesignProperty("ZORV Pelk Config Number", 9, {});
    texts << DesignStorage::text(*design);
    generate(host);
    texts << DesignStorage::text(*design);
    design->setVersion(7, 8);
    texts << DesignStorage::text(*design);

    for (int step = texts.count() - 2; step >= 0; --step) {
        host.child<QAction>("Edit.Undo")->trigger();
        QCOMPARE(DesignStorage::text(*design), texts.at(step));
    }
    for (int step = 1; step < texts.count(); ++step) {
        host.child<QAction>("Edit.Redo")->trigger();
        QCOMPARE(DesignStorage::text(*design), texts.at(step));
    }
}

void AccidentsTest::callsAMoveAMove()
{
    HostFixture host;
    host.openDesign("radar");
    host.drop("Other Files", host.path("radar/top.bin"));
    QCOMPARE(host.item("top.bin").parent(), host.item("Other Files"));
    QCOMPARE(host.child<QAction>("Edit.Undo")->text(), QString("&Undo Move to Other Files"));
    host.child<QAction>("Edit.Undo")->trigger();
    QCOMPARE(host.child<QAction>("Edit.Redo")->text(), QString("&Redo Move to Other Files"));

    host.drop("Other Files", host.writeFile("radar/new.vhd", "x"));
    QCOMPARE(host.child<QAction>("Edit.Undo")->text(), QString("&Undo Add new.vhd"));
}

void AccidentsTest::saysThatSeveralDesignsAreOpen()
{
    HostFixture host;
    auto* const bar = host.child<QWidget>("SeveralDesigns");
    Design* const first = host.openDesign("radar");
    QVERIFY(!bar->isVisible());
    host.openDesign("other");
    QVERIFY(bar->isVisible());
    QVERIFY(host.child<QLabel>("SeveralDesignsText")->text().startsWith("2 designs are open."));

    // Cancelling keeps both open.
    first->setVersion(3, 3);
    host.dialogs().click(QMessageBox::Cancel);
    auto* const close = host.child<QPushButton>("CloseOthersButton");
    QTest::mouseClick(close, Qt::LeftButton);
    QVERIFY(bar->isVisible());
    host.dialogs().click(QMessageBox::Discard);
    QTest::mouseClick(close, Qt::LeftButton);
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(!bar->isVisible());
    QVERIFY(!host.item("radar").isValid());
    QVERIFY(host.item("other").isValid());
}

void AccidentsTest::opensNoMenuOfAPaneBehindAnother()
{
    HostFixture host;
    host.openDesign("radar");
    host.activate();
    auto* const properties = host.child<QDockWidget>("PropertyDock");
    auto* const image = host.child<QDockWidget>("InspectorDock");
    image->show();
    image->raise();
    QTRY_VERIFY(!properties->widget()->isEnabled());
    QTest::keyClick(host.window()->windowHandle(), Qt::Key_A, Qt::AltModifier);
    QVERIFY(!QApplication::activePopupWidget());

    properties->raise();
    QTRY_VERIFY(properties->widget()->isEnabled());
}

HOST_TEST(AccidentsTest)

#include "AccidentsTest.moc"
