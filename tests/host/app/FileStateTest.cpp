#include "host/app/HostFixture.h"
#include "host/app/SampleImage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QtTest>

#include <functional>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;

namespace {

using Change = std::function<void(QByteArray*)>;

FcfHeader presentHeader() { return SampleImage::header("top.fcf", 1, 4); }

/// A design of version 1.4 for GPM, Processing_FPGA_2, slot 3, with a generated image of it.
class StateHost : public HostFixture {
public:
    StateHost()
    {
        m_design = openDesign("radar");
        writeImage(SampleImage::image(presentHeader(), bytesOf("radar/top.bin")));
        DesignFile* const image = m_design->restoreFile(path("radar/top.fcf"));
        image->setIsGenerated(true);
        image->setVersionAssociation("1.4");
    }

    void writeImage(const QByteArray& bytes) const { writeFile("radar/top.fcf", bytes); }
    Design* design() const { return m_design; }
    QString state() const { return row("top.fcf").value(1); }
    QString toolTip() const { return item("top.fcf").data(Qt::ToolTipRole).toString(); }
    bool hasMark() const
    {
        const QModelIndex index = item("top.fcf").siblingAtColumn(1);
        return !index.data(Qt::DecorationRole).value<QIcon>().isNull();
    }

private:
    Design* m_design;
};

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(FcfHeader)

/// What the design view says of files, after changes on the disk and in the design.
class FileStateTest : public QObject {
    Q_OBJECT

private slots:
    void marksAnInvalidImage_data();
    void marksAnInvalidImage();
    void marksAnImageOfAnotherBuild_data();
    void marksAnImageOfAnotherBuild();
    void comparesWithTheTargetOfTheDesign();
    void leavesOtherTextsAlone();
    void marksFilesOutsideOfTheDesign();
    void logsWhatIsWrongAfterGenerateWithALink();
    void asksBeforeItArchivesWhatIsOutdated();
    void inspectsWhatIsSelected();
    void comparesWithTheBinaryBesideIt();
    void inspectsAFileAgainThatChanges();
    void waitsForAFileThatIsBeingReplaced();
};

void FileStateTest::marksAnInvalidImage_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << Change([](QByteArray* image) { image->clear(); })
                           << "it ends before the text";
    QTest::newRow("cut in the page")
        << Change([](QByteArray* image) { image->truncate(500); }) << "expected";
    QTest::newRow("cut in the payload")
        << Change([](QByteArray* image) { image->chop(7); }) << "7 bytes are missing at the end";
    QTest::newRow("without a payload") << Change([](QByteArray* image) { image->chop(5000); })
                                       << "5000 bytes are missing at the end";
    QTest::newRow("sizes of 0") << Change([](QByteArray* image) {
        image->replace(8, 4, "\0\0\0\0", 4);
    }) << "totalSize";
    QTest::newRow("a damaged code")
        << Change([](QByteArray* image) { (*image)[27] = 9; }) << "is the code of no module";
    QTest::newRow("another file under its name")
        << Change([](QByteArray* image) { *image = QByteArray(9000, 'x'); }) << "is no FCF";
}

void FileStateTest::marksAnInvalidImage()
{
    QFETCH(Change, change);
    QFETCH(QString, reason);
    const StateHost host;
    QTRY_COMPARE(host.state(), QString("Generated"));
    QVERIFY(!host.hasMark());

    QByteArray image = host.bytesOf("radar/top.fcf");
    change(&image);
    host.writeImage(image);
    QTRY_COMPARE(host.state(), QString("Invalid"));
    QVERIFY(host.hasMark());
    QVERIFY2(host.toolTip().contains(reason), qPrintable(host.toolTip()));
}

void FileStateTest::marksAnImageOfAnotherBuild_data()
{
    QTest::addColumn<FcfHeader>("header");
    QTest::addColumn<QString>("reason");
    FcfHeader header = presentHeader();
    header.versionMinor = 3;
    QTest::newRow("version") << header << "version 1.3, the design has 1.4";
    header = presentHeader();
    header.configNumber = 8;
    QTest::newRow("slot") << header << "slot 8, the design has 3";
    header = presentHeader();
    header.deviceCode = 1;
    QTest::newRow("device") << header
                            << "for GPM Interface_FPGA, the design is for GPM Processing_FPGA_2";
    header = presentHeader();
    header.moduleCode = 1;
    QTest::newRow("module")
        << header << "for DFE Clock_Master_Device, the design is for GPM Processing_FPGA_2";
}

void FileStateTest::marksAnImageOfAnotherBuild()
{
    QFETCH(FcfHeader, header);
    QFETCH(QString, reason);
    const StateHost host;
    host.writeImage(SampleImage::image(header, host.bytesOf("radar/top.bin")));
    QTRY_COMPARE(host.state(), QString("Generated, Outdated"));
    QVERIFY(host.hasMark());
    QVERIFY2(host.toolTip().contains(reason), qPrintable(host.toolTip()));
}

void FileStateTest::comparesWithTheTargetOfTheDesign()
{
    const StateHost host;
    QTRY_COMPARE(host.state(), QString("Generated"));
    host.design()->setDesignProperty("ZORV Pelk Config Number", 4, {});
    QCOMPARE(host.state(), QString("Generated, Outdated"));
    // What the design does not say is not compared.
    host.design()->removeDesignProperty("ZORV Pelk Config Number");
    QCOMPARE(host.state(), QString("Generated"));
    host.design()->setVersion(2, 4);
    QCOMPARE(host.state(), QString("Generated, Outdated"));
    QVERIFY(host.toolTip().contains("version 1.4, the design has 2.4"));

    host.writeFile("radar/top.bin", QByteArray(5001, 'b'));
    QTRY_VERIFY(host.toolTip().contains("top.bin has another size"));
}

void FileStateTest::leavesOtherTextsAlone()
{
    const StateHost host;
    host.design()->restoreFile(host.writeFile("radar/notes.txt", "Remember"));
    host.design()->restoreFile(host.writeFile("radar/top.txt", "no companion"));
    QCOMPARE(host.row("notes.txt").value(1), QString());
    QCOMPARE(host.row("top.txt").value(1), QString("Invalid"));
}

void FileStateTest::marksFilesOutsideOfTheDesign()
{
    const StateHost host;
    host.design()->restoreFile(host.writeFile("radar-2/far.vhd", "x"));
    QCOMPARE(host.row("far.vhd").value(1), QString("External"));
    QCOMPARE(host.row("top.bin").value(1), QString());
}

void FileStateTest::logsWhatIsWrongAfterGenerateWithALink()
{
    StateHost host;
    QMenu* const menu = host.menuByMouse("top.bin");
    QVERIFY(host.choose(menu, "Create FCF"));
    QTRY_VERIFY(host.generator());
    // The generator has measured the binary already.
    host.writeFile("radar/top.bin", QByteArray(5003, 'n'));
    host.dialogs().click(QMessageBox::Yes);
    auto* const author = host.generator()->findChild<QLineEdit*>("AuthoEditBox");
    author->setText("R. Vos");
    QTest::mouseClick(host.generator()->findChild<QPushButton*>("GenerateButton"), Qt::LeftButton);
    QTRY_VERIFY(!host.generator());
    QVERIFY(host.dialogs().allGiven());

    auto* const log = host.child<QTreeWidget>("logMessages");
    QTreeWidgetItem* link = nullptr;
    for (int row = 0; row < log->topLevelItemCount(); ++row) {
        if (log->topLevelItem(row)->text(2).startsWith("top.fcf is not valid: "))
            link = log->topLevelItem(row);
    }
    QVERIFY(link);
    QVERIFY2(link->text(2).contains("3 bytes follow the payload"), qPrintable(link->text(2)));
    QVERIFY(link->font(2).underline());

    auto* const report = host.child<QTextBrowser>("ImageReport");
    QVERIFY(!report->isVisible());
    log->scrollToItem(link);
    QTest::mouseClick(log->viewport(), Qt::LeftButton, {}, log->visualItemRect(link).center());
    QTRY_VERIFY(report->isVisible());
    QVERIFY(report->toPlainText().contains("5003"));
}

void FileStateTest::asksBeforeItArchivesWhatIsOutdated()
{
    StateHost host;
    host.design()->setVersion(1, 7);
    host.design()->restoreFile("gone.vhd");
    host.dialogs().click(QMessageBox::No);
    host.action("File.ArchiveDesign")->trigger();
    QVERIFY(host.dialogs().allGiven());
    const QString text = host.dialogs().texts().value(0);
    QVERIFY2(
        text.contains(
            "top.fcf: Generated, Outdated (version 1.4, the design has 1.7)\ngone.vhd: Missing"),
        qPrintable(text));

    host.dialogs().clear();
    host.dialogs().click(QMessageBox::Yes);
    QStringList titles;
    host.dialogs().leaveTo([&titles](QWidget* dialog) {
        titles << dialog->windowTitle();
        dialog->close();
    });
    host.action("File.ArchiveDesign")->trigger();
    QCOMPARE(titles, QStringList("Archive \"radar\""));
}

void FileStateTest::inspectsWhatIsSelected()
{
    const StateHost host;
    const QByteArray image = host.bytesOf("radar/top.fcf");
    host.design()->restoreFile(host.writeFile("radar/bad.fcf", image.left(3000)));
    host.view()->setCurrentIndex(host.item("top.fcf"));
    auto* const report = host.child<QTextBrowser>("ImageReport");
    QCOMPARE(report->toPlainText(), QString());
    host.press(Qt::Key_I, Qt::ControlModifier);
    QTRY_VERIFY(report->toPlainText().startsWith("VALID\n"));

    QTest::keyClick(host.view(), Qt::Key_Home);
    host.view()->setCurrentIndex(host.item("bad.fcf"));
    QTRY_VERIFY(report->toPlainText().startsWith("NOT VALID\n"));
    QVERIFY(report->toPlainText().contains(host.path("radar/bad.fcf")));
    // The binary is no image, so that the last one stays.
    host.view()->setCurrentIndex(host.item("top.bin"));
    QVERIFY(report->toPlainText().contains(host.path("radar/bad.fcf")));

    // Behind the other tab it does not read what nobody sees.
    host.child<QDockWidget>("PropertyDock")->raise();
    QTRY_VERIFY(!host.child<QDockWidget>("InspectorDock")->widget()->isEnabled());
    host.view()->setCurrentIndex(host.item("top.fcf"));
    QVERIFY(report->toPlainText().contains(host.path("radar/bad.fcf")));
    host.child<QDockWidget>("InspectorDock")->raise();
    QTRY_VERIFY(report->toPlainText().contains(host.path("radar/top.fcf")));
}

void FileStateTest::comparesWithTheBinaryBesideIt()
{
    const StateHost host;
    host.view()->setCurrentIndex(host.item("top.fcf"));
    host.press(Qt::Key_I, Qt::ControlModifier);
    auto* const report = host.child<QTextBrowser>("ImageReport");
    QVERIFY(report->toPlainText().contains("top.bin is the payload, byte for byte"));

    QByteArray binary = host.bytesOf("radar/top.bin");
    binary[77] = 'x';
    binary[4000] = 'y';
    host.writeFile("radar/top.bin", binary);
    host.press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(
        report->toPlainText().contains("top.bin differs in 2 bytes, the first one at offset 77"));
    QVERIFY(report->toPlainText().startsWith("VALID\n"));

    host.writeFile("radar/top.bin", binary + "z");
    host.press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(report->toPlainText().contains("top.bin has 5001 bytes, the image is of 5000"));

    // An image that is its page alone is no companion.
    host.writeImage(host.bytesOf("radar/top.fcf").left(2114));
    host.press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(report->toPlainText().startsWith("NOT VALID\n"));
}

void FileStateTest::inspectsAFileAgainThatChanges()
{
    const StateHost host;
    host.view()->setCurrentIndex(host.item("top.fcf"));
    host.press(Qt::Key_I, Qt::ControlModifier);
    auto* const report = host.child<QTextBrowser>("ImageReport");
    QTRY_VERIFY(report->toPlainText().startsWith("VALID\n"));

    const QByteArray image = host.bytesOf("radar/top.fcf");
    // The model looks at the disk by itself, but on a loaded machine not often.
    const auto lookAtDisk = [&host] {
        QMetaObject::invokeMethod(host.view()->model(), "refreshFromDisk");
    };
    host.writeImage(image.left(3000));
    lookAtDisk();
    QVERIFY(report->toPlainText().startsWith("NOT VALID\n"));
    host.writeImage(image);
    lookAtDisk();
    QVERIFY(report->toPlainText().startsWith("VALID\n"));
}

void FileStateTest::waitsForAFileThatIsBeingReplaced()
{
    const StateHost host;
    host.view()->setCurrentIndex(host.item("top.fcf"));
    host.press(Qt::Key_I, Qt::ControlModifier);
    auto* const report = host.child<QTextBrowser>("ImageReport");
    QTRY_VERIFY(report->toPlainText().startsWith("VALID\n"));

    // The new image has its name already, its digest not yet.
    const int folder = ::open(qPrintable(host.path("radar")), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    QCOMPARE(::flock(folder, LOCK_EX), 0);
    host.writeFile("radar/top.fcf.sha256", QByteArray(64, '0') + "  top.fcf\n");
    host.press(Qt::Key_I, Qt::ControlModifier);
    QTRY_VERIFY(report->toPlainText().startsWith("Another program"));
    const QByteArray digest =
        QCryptographicHash::hash(host.bytesOf("radar/top.fcf"), QCryptographicHash::Sha256);
    host.writeFile("radar/top.fcf.sha256", digest.toHex() + "  top.fcf\n");
    ::close(folder);
    QTRY_VERIFY(report->toPlainText().startsWith("VALID\n"));
    QVERIFY(report->toPlainText().contains("as in the digest file"));
}

HOST_TEST(FileStateTest)

#include "FileStateTest.moc"
