#include "host/app/RemakeHost.h"
#include "host/app/SampleImage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QTreeWidget>
#include <QtTest>

using OrvanticCore::Design;

/// Making all outdated images of a design again, in the real window.
class RemakeAllTest : public QObject {
    Q_OBJECT

private slots:
    void makesAllOutdatedAgain();
    void saysThatNothingIsOutdated();
    void stopsBehindTheCurrentImage();
};

void RemakeAllTest::makesAllOutdatedAgain()
{
    RemakeHost host;
    host.addImage("first", RemakeHost::headerOf("first.fcf"), SampleImage::binary(5000, 'a'));
    host.addImage("second", RemakeHost::headerOf("second.fcf"), SampleImage::binary(6000, 'b'));
    host.addImage("third", RemakeHost::headerOf("third.fcf"), SampleImage::binary(7000, 'c'));
    const QByteArray page = host.bytesOf("radar/second.fcf");
    host.writeFile("radar/second.fcf", page.left(300));
    Design* const design = host.open();
    design->setVersion(1, 2);

    QString report;
    host.dialogs().leaveTo([&report](QWidget* dialog) {
        const auto close = qScopeGuard([dialog] { RemakeHost::closeIfOpen(dialog); });
        const auto* const list = dialog->findChild<QTreeWidget*>("RemakeList");
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(list->topLevelItem(0)->text(0), QString("first.fcf"));
        QVERIFY(list->topLevelItem(0)->text(1).contains("1.2"));
        QTest::mouseClick(dialog->findChild<QPushButton*>("RemakeStartButton"), Qt::LeftButton);
        QTRY_COMPARE(dialog->findChild<QProgressBar*>("RemakeProgress")->value(), 3);
        auto* const copy = dialog->findChild<QPushButton*>("CopyRemakeReportButton");
        QTRY_VERIFY(copy->isEnabled());
        QTest::mouseClick(copy, Qt::LeftButton);
        report = QApplication::clipboard()->text();
    });
    host.press(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);

    QVERIFY(host.dialogs().allGiven());
    const QStringList lines = report.split('\n');
    QCOMPARE(lines.at(0), QString("2 of 3 images made again, 1 failed."));
    QCOMPARE(lines.at(1),
             host.path("radar/first.fcf") + ": Made for 1.2, GPM, Processing_FPGA_2, slot 3");
    QVERIFY(lines.at(2).startsWith("  first.fcf: "));
    QVERIFY2(report.contains('\n' + host.path("radar/second.fcf") + ": second.fcf: "),
             qPrintable(report));
    QCOMPARE(host.header("first.fcf").versionMinor, 2);
    QCOMPARE(host.header("third.fcf").versionMinor, 2);
    QCOMPARE(host.bytesOf("radar/third.fcf").right(7000), SampleImage::binary(7000, 'c'));
    QCOMPARE(host.bytesOf("radar/second.fcf"), page.left(300));
    QCOMPARE(host.row("third.fcf"), QStringList({"third.fcf", "Generated", "1.2"}));

    // One step takes back all that the design notes of it.
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(design->fileAt(host.path("radar/first.fcf"))->versionAssociation(), QString("1.0"));
    QCOMPARE(design->fileAt(host.path("radar/third.fcf"))->versionAssociation(), QString("1.0"));
}

void RemakeAllTest::saysThatNothingIsOutdated()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    host.open();
    host.dialogs().click(QMessageBox::Ok);
    host.press(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(host.dialogs().texts(), QStringList("No image of \"radar\" is outdated."));
}

void RemakeAllTest::stopsBehindTheCurrentImage()
{
    RemakeHost host;
    host.addImage("first", RemakeHost::headerOf("first.fcf"), SampleImage::binary(5000, 'a'));
    host.addImage("second", RemakeHost::headerOf("second.fcf"), SampleImage::binary(6000, 'b'));
    Design* const design = host.open();
    design->setVersion(1, 2);
    host.dialogs().leaveTo([](QWidget* dialog) {
        const auto close = qScopeGuard([dialog] { RemakeHost::closeIfOpen(dialog); });
        auto* const buttons = dialog->findChild<QDialogButtonBox*>();
        const QPointer<QPushButton> start = dialog->findChild<QPushButton*>("RemakeStartButton");
        // Both before the second image is begun.
        QTest::mouseClick(start, Qt::LeftButton);
        QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        QTRY_VERIFY(!start);
        QCOMPARE(dialog->findChild<QLabel*>("RemakeSummary")->text(),
                 QString("1 of 2 images made again, 0 failed."));
    });
    host.press(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(host.header("first.fcf").versionMinor, 2);
    QCOMPARE(host.header("second.fcf").versionMinor, 0);
}

HOST_TEST(RemakeAllTest)

#include "RemakeAllTest.moc"
