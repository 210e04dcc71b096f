#include "host/app/HostFixture.h"
#include "host/app/SampleImage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;

namespace {

/// Sets when a file was last changed, \p seconds from now.
void touch(const QString& path, int seconds)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(seconds),
                             QFileDevice::FileModificationTime));
}

/// Generates the image of "top.bin" through the generator; then the image is the current item.
void makeImage(const HostFixture& host)
{
    host.activate();
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Return);
    QTRY_VERIFY(HostFixture::generator());
    const QPointer<QWidget> window = HostFixture::generator();
    QTest::mouseClick(window->findChild<QPushButton*>("GenerateButton"), Qt::LeftButton);
    QTRY_VERIFY(!window || !window->isVisible());
    QCOMPARE(host.view()->currentIndex(), host.item("top.fcf"));
}

} // namespace

/// What happens to the files of a design: their state, their nodes, undo and redo.
class HostFilesTest : public QObject {
    Q_OBJECT

private slots:
    void marksAnImageWhoseBinaryIsNewer();
    void marksAGeneratedFileOfAnotherVersion();
    void showsSizesAndDates();
    void putsAFileWhereItIsDropped();
    void putsAFileIntoTheNodeThatIsCurrent();
    void movesSelectedFilesByTheMenu();
    void offersFilesToBeDragged();
    void undoesAndRedoesWhatWasDoneToFiles();
    void undoesAChangedProperty();
    void undoesNothingInALockedDesign();
    void undoesWhatAToolAddedAsAStepOfItsOwn();
    void saysWhyAValueIsNotTaken();
    void showsWhatAnImageContains();
    void showsWhatIsWrongWithAnImage();
    void showsAnImageThatTheDesktopOpens();
    void warnsOfAValueThatTheGeneratorDoesNotKnow();
};

void HostFilesTest::marksAnImageWhoseBinaryIsNewer()
{
    HostFixture host;
    DesignFile* const image = host.openDesign("radar")->restoreFile(
        host.writeFile("radar/top.fcf", SampleImage::image(SampleImage::header("top.fcf", 1, 4),
                                                           host.bytesOf("radar/top.bin"))));
    touch(host.path("radar/top.bin"), -100);
    image->setIsGenerated(true);
    QCOMPARE(host.row("top.fcf").at(1), QString("Generated"));
    // Written in place, which no folder reports.
    QFile binary(host.path("radar/top.bin"));
    QVERIFY(binary.open(QIODevice::ReadWrite));
    QVERIFY(binary.setFileTime(QDateTime::currentDateTime().addSecs(100),
                               QFileDevice::FileModificationTime));
    binary.close();
    touch(host.path("radar/top.bin"), 100);
    QTRY_COMPARE(host.row("top.fcf").at(1), QString("Generated, Outdated"));
    const QString why = host.item("top.fcf").data(Qt::ToolTipRole).toString();
    QVERIFY2(why.contains("top.bin has changed since"), qPrintable(why));
    QCOMPARE(host.row("top.bin").at(1), QString());
}

void HostFilesTest::marksAGeneratedFileOfAnotherVersion()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    // A generated file that is no image has its version in the design alone.
    DesignFile* const report = design->restoreFile(host.writeFile("radar/top.rpt", "report"));
    touch(host.path("radar/top.bin"), -100);
    report->setIsGenerated(true);
    report->setVersionAssociation("1.4");
    QCOMPARE(host.row("top.rpt").at(1), QString("Generated"));
    design->setVersion(1, 5);
    QCOMPARE(host.row("top.rpt").at(1), QString("Generated, Outdated"));
    const QString why = host.item("top.rpt").data(Qt::ToolTipRole).toString();
    QVERIFY2(why.contains("version 1.4, the design has 1.5"), qPrintable(why));
}

void HostFilesTest::showsSizesAndDates()
{
    HostFixture host;
    host.openDesign("radar");
    const QModelIndex item = host.item("top.bin");
    QCOMPARE(item.siblingAtColumn(3).data().toString(), QLocale().formattedDataSize(5000));
    QVERIFY(item.siblingAtColumn(4).data().toString().startsWith(
        QDate::currentDate().toString("yyyy-")));
}

void HostFilesTest::putsAFileWhereItIsDropped()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.drop("Other Files", host.writeFile("radar/new.bit", "bytes"));
    QCOMPARE(host.item("new.bit").parent(), host.item("Other Files"));
    host.drop("top.bin", host.writeFile("radar/notes.pdf", "bytes"));
    QCOMPARE(host.item("notes.pdf").parent(), host.item("Bit-stream Files"));
    // On the design its rules decide.
    host.drop("radar", host.writeFile("radar/other.bit", "bytes"));
    QCOMPARE(host.item("other.bit").parent(), host.item("Bit-stream Files"));
    QCOMPARE(design->fileAt("other.bit")->customNode(), QString());
}

void HostFilesTest::putsAFileIntoTheNodeThatIsCurrent()
{
    HostFixture host;
    host.openDesign("radar");
    host.view()->setCurrentIndex(host.item("Other Files"));
    host.dialogs().choose(host.writeFile("radar/new.bit", "bytes"));
    host.press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(host.item("new.bit").parent(), host.item("Other Files"));
}

void HostFilesTest::movesSelectedFilesByTheMenu()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->restoreFile("a.bit");
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("a.bit"));
    QTest::keyClick(host.view(), Qt::Key_Down, Qt::ShiftModifier);
    QMenu* const menu = host.menu("Design");
    QVERIFY(menu);
    QMenu* const nodes = host.child<QMenu>("MoveToMenu");
    nodes->popup(QPoint(0, 0));
    QCOMPARE(HostFixture::entriesOf(nodes),
             QStringList({"Firmware", "Bit-stream Files", "Other Files"}));
    QVERIFY(HostFixture::choose(nodes, "Other Files"));
    menu->close();
    QCOMPARE(host.item("a.bit").parent(), host.item("Other Files"));
    QCOMPARE(host.item("top.bin").parent(), host.item("Other Files"));
    // Also by dragging, to which a file of the design is one like any other.
    host.drop("Bit-stream Files", host.path("radar/top.bin"));
    QCOMPARE(host.item("top.bin").parent(), host.item("Bit-stream Files"));
    QCOMPARE(design->files().count(), 2);
}

void HostFilesTest::offersFilesToBeDragged()
{
    HostFixture host;
    host.openDesign("radar");
    const QScopedPointer<QMimeData> data(host.view()->model()->mimeData({host.item("top.bin")}));
    QCOMPARE(data->urls(), QList<QUrl>{QUrl::fromLocalFile(host.path("radar/top.bin"))});
    QVERIFY(!host.view()->model()->mimeData({host.item("Firmware")}));
}

void HostFilesTest::undoesAndRedoesWhatWasDoneToFiles()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    host.drop("Other Files", host.writeFile("radar/new.bit", "bytes"));
    QCOMPARE(design->files().count(), 1);

    host.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(design->files().count(), 0);
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(host.item("top.bin").parent(), host.item("Bit-stream Files"));
    host.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    host.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!host.item("top.bin").isValid());
    QCOMPARE(host.item("new.bit").parent(), host.item("Other Files"));
}

void HostFilesTest::undoesAChangedProperty()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    auto* const view = host.child<QTreeView>("PropertyView");
    QVERIFY(view->model()->setData(view->model()->index(0, 1), "DFE"));
    QCOMPARE(design->designProperty("ZORV Pelk Module"), QVariant("DFE"));
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(design->designProperty("ZORV Pelk Module"), QVariant("GPM"));
    QCOMPARE(design->designProperties().first().category.toString(), QString("Target"));
}

void HostFilesTest::undoesNothingInALockedDesign()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    design->setLocked(true);
    QVERIFY(!host.child<QAction>("Edit.Undo")->isEnabled());
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(design->files().count(), 0);
    design->setLocked(false);
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(design->files().count(), 1);
}

void HostFilesTest::undoesWhatAToolAddedAsAStepOfItsOwn()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    host.drop("Other Files", host.writeFile("radar/new.bit", "bytes"));
    design->tree()->startProcessingCycle();
    design->restoreFile("top.fcf")->setIsGenerated(true);
    design->tree()->endProcessingCycle();
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!design->fileAt("top.fcf"));
    QVERIFY(design->fileAt("new.bit"));
    host.press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!design->fileAt("new.bit"));
}

void HostFilesTest::showsWhatAnImageContains()
{
    HostFixture host;
    host.openDesign("radar");
    makeImage(host);
    QTest::keyClick(host.view(), Qt::Key_Return);
    const auto* const report = host.child<QTextBrowser>("ImageReport");
    QTRY_VERIFY(report->isVisible());
    QTest::mouseClick(host.child<QPushButton>("CopyReportButton"), Qt::LeftButton);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QVERIFY(lines.contains("File: " + host.path("radar/top.fcf")));
    QVERIFY(lines.contains("Target: GPM, Processing_FPGA_2, slot 3"));
    QVERIFY(lines.contains("Version: 1.4"));
    QVERIFY(lines.contains("Description: Clock corrected"));
    QVERIFY(lines.contains("Kind: image: the header page and a binary of 5000 bytes"));
    QCOMPARE(lines.filter("Finding").join("; "), QString());
    QVERIFY(report->toPlainText().contains("The file is as the generator writes it."));
}

void HostFilesTest::showsAnImageThatTheDesktopOpens()
{
    HostFixture host;
    host.window()->open(host.writeFile("radar.FCF", "no image"));
    const auto* const report = host.child<QTextBrowser>("ImageReport");
    QTRY_VERIFY(report->isVisible());
    QVERIFY(report->toPlainText().contains("radar.FCF"));
    QVERIFY(host.log().isEmpty());

    // A design can have a name like an image.
    host.window()->open(host.makeDesign("radar.fcf"));
    QVERIFY(host.item("top.bin").isValid());
}

void HostFilesTest::showsWhatIsWrongWithAnImage()
{
    HostFixture host;
    host.openDesign("radar");
    makeImage(host);
    QFile image(host.path("radar/top.fcf"));
    QVERIFY(image.resize(image.size() - 100));
    host.writeFile("radar/top.fcf.sha256", QByteArray(64, '0') + "  top.fcf\n");
    host.press(Qt::Key_I, Qt::ControlModifier);
    QString text = host.child<QTextBrowser>("ImageReport")->toPlainText();
    QVERIFY2(text.contains("100 bytes are missing at the end"), qPrintable(text));
    QVERIFY2(text.contains("The digest in top.fcf.sha256 is that of another file."),
             qPrintable(text));

    host.writeFile("radar/top.fcf", "no image");
    host.press(Qt::Key_I, Qt::ControlModifier);
    text = host.child<QTextBrowser>("ImageReport")->toPlainText();
    QVERIFY2(text.contains("is no FCF"), qPrintable(text));
}

void HostFilesTest::saysWhyAValueIsNotTaken()
{
    HostFixture host;
    host.openDesign("radar");
    auto* const view = host.child<QTreeView>("PropertyView");
    host.activate();
    view->setFocus();
    view->setCurrentIndex(view->model()->index(2, 1));
    QTest::keyClick(view, Qt::Key_F2);
    QWidget* const editor = QApplication::focusWidget();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, "abc");
    QTest::keyClick(editor, Qt::Key_Return);
    const auto* const help = host.child<QTextBrowser>("PropertyHelp");
    QTRY_VERIFY(
        help->toPlainText().startsWith("\"abc\" is no whole number. The value is as before."));
    QCOMPARE(view->model()->index(2, 1).data().toString(), QString("3"));
}

void HostFilesTest::warnsOfAValueThatTheGeneratorDoesNotKnow()
{
    HostFixture host;
    host.openDesign("radar");
    auto* const view = host.child<QTreeView>("PropertyView");
    view->setCurrentIndex(view->model()->index(1, 1));
    QVERIFY(view->model()->setData(view->model()->index(1, 1), "Clock_Master_Device"));
    const QString help = host.child<QTextBrowser>("PropertyHelp")->toPlainText();
    QVERIFY2(help.startsWith("\"Clock_Master_Device\" is none of Interface_FPGA, "),
             qPrintable(help));
    QVERIFY(!view->model()->index(1, 1).data(Qt::DecorationRole).isNull());
    QVERIFY(view->model()->index(0, 1).data(Qt::DecorationRole).isNull());
}

HOST_TEST(HostFilesTest)

#include "HostFilesTest.moc"
