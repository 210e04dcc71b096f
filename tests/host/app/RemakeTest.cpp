#include "host/app/RemakeHost.h"
#include "host/app/SampleImage.h"

#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "support/FullDisk.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QComboBox>
#include <QCryptographicHash>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QSpinBox>
#include <QStyleOptionSpinBox>
#include <QToolBar>
#include <QtTest>

using OrvanticCore::Design;

namespace {

void clickUp(QSpinBox* box)
{
    QStyleOptionSpinBox option;
    option.initFrom(box);
    option.subControls = QStyle::SC_All;
    const QRect arrow =
        box->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, box);
    QTest::mouseClick(box, Qt::LeftButton, {}, arrow.center());
}

void clickTool(const HostFixture& host, const char* id)
{
    auto* const bar = host.child<QToolBar>("ToolBar");
    QWidget* const button = bar->widgetForAction(host.action(id));
    QTRY_VERIFY(button && button->isVisible() && button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

/// Making an image again, by mouse and keys in the real window.
class RemakeTest : public QObject {
    Q_OBJECT

private slots:
    void makesTheNextVersionInTwoClicks();
    void isOfferedForFilesOfAnImage_data();
    void isOfferedForFilesOfAnImage();
    void isDisabledInALockedDesign();
    void isDisabledWithoutADesign();
    void takesTheTargetOfTheDesign();
    void takesTheTargetOfTheImageIfTheDesignHasNone();
    void asksForATargetThatIsNotKnown();
    void changesNothingWhenTheQuestionIsCancelled();
    void replacesTheDigestToo();
    void leavesAllFilesWhenTheImageIsDamaged();
    void leavesAllFilesWhenTheDiskIsFull();
    void worksWithTwoDesigns();
    void canBeUndoneInTheDesign();
};

void RemakeTest::makesTheNextVersionInTwoClicks()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    Design* const design = host.open();
    QFile::remove(host.path("radar/top.txt"));
    const QByteArray payload = SampleImage::binary(141000, 'n');
    host.writeFile("radar/top.bin", payload);
    host.select("top.bin");

    clickUp(host.child<QSpinBox>("VersionMinor"));
    clickTool(host, "Design.MakeAgain");

    const FcfHeader made = host.header("top.fcf");
    FcfHeader expected = RemakeHost::headerOf("top.fcf");
    expected.versionMinor = 1;
    expected.setSizes(PelkFcfGeneratorFileInfo().measure(payload.size()));
    expected.date = made.date;
    expected.time = made.time;
    QCOMPARE(made, expected);
    QVERIFY(made.binBlocks > 0 && made.totalSize == payload.size() + 2112);
    QVERIFY(made.date != RemakeHost::headerOf("").date &&
            made.time != RemakeHost::headerOf("").time);
    QCOMPARE(host.bytesOf("radar/top.fcf"), SampleImage::image(made, payload));
    QCOMPARE(host.bytesOf("radar/top.txt") + payload, host.bytesOf("radar/top.fcf"));

    QCOMPARE(host.row("top.fcf"), QStringList({"top.fcf", "Generated", "1.1"}));
    QCOMPARE(host.row("top.txt"), QStringList({"top.txt", "Generated", "1.1"}));
    QCOMPARE(host.item("top.fcf").parent(), host.item("Bit-streams"));
    QCOMPARE(host.item("top.txt").parent(), host.item("Bit-streams"));
    QCOMPARE(host.view()->currentIndex(), host.item("top.fcf"));
    QCOMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(3));
    QCOMPARE(host.log().last(),
             QString("top.fcf was made again for version 1.1 and GPM, Processing_FPGA_2, slot 3."));
    QVERIFY(host.dialogs().allGiven());
}

void RemakeTest::isOfferedForFilesOfAnImage_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("isOffered");
    QTest::newRow("the binary") << "top.bin" << true;
    QTest::newRow("the image") << "top.fcf" << true;
    QTest::newRow("the companion") << "top.txt" << true;
    QTest::newRow("a binary without an image") << "other.bin" << false;
    QTest::newRow("an image without a binary") << "lonely.fcf" << false;
    QTest::newRow("another file of that name") << "top.vhd" << false;
}

void RemakeTest::isOfferedForFilesOfAnImage()
{
    QFETCH(QString, file);
    QFETCH(bool, isOffered);
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    host.addImage("lonely", RemakeHost::headerOf("lonely.fcf"), SampleImage::binary(6000, 'b'));
    Design* const design = host.open();
    QFile::remove(host.path("radar/lonely.bin"));
    for (const char* name : {"top.txt", "top.vhd", "other.bin"}) {
        if (QString(name) != "top.txt")
            host.writeFile(QString("radar/") + name, "x");
        QVERIFY(design->addFile(host.path(QString("radar/") + name), nullptr));
    }

    QMenu* const menu = host.menuByMouse(file);
    QVERIFY(menu);
    QCOMPARE(host.entriesOf(menu).contains("Make Image Again"), isOffered);
    if (isOffered) {
        QVERIFY(host.choose(menu, "Make Image Again"));
        QVERIFY(host.header("top.fcf").date != RemakeHost::headerOf("").date);
    }
    menu->close();
}

void RemakeTest::isDisabledInALockedDesign()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    Design* const design = host.open();
    host.select("top.bin");
    QVERIFY(host.action("Design.MakeAgain")->isEnabled());
    QVERIFY(host.action("Design.MakeAllAgain")->isEnabled());
    host.action("Design.Locked")->trigger();
    QVERIFY(design->isLocked());
    QVERIFY(!host.action("Design.MakeAgain")->isEnabled());
    QVERIFY(!host.action("Design.MakeAllAgain")->isEnabled());
}

void RemakeTest::isDisabledWithoutADesign()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    host.open();
    QVERIFY(host.action("Design.MakeAllAgain")->isEnabled());
    host.action("File.CloseDesign")->trigger();
    QVERIFY(!host.action("Design.MakeAllAgain")->isEnabled());
}

void RemakeTest::takesTheTargetOfTheDesign()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    Design* const design = host.open();
    design->setDesignProperty("ZORV Pelk Module", "DFE2", {});
    design->setDesignProperty("ZORV Pelk Device", "Processing_FPGA", {});
    design->setDesignProperty("ZORV Pelk Config Number", 9, {});
    host.select("top.fcf");
    host.press(Qt::Key_G, Qt::ControlModifier);

    const FcfHeader made = host.header("top.fcf");
    QCOMPARE(made.moduleCode, 2);
    QCOMPARE(made.deviceCode, 0);
    QCOMPARE(made.configNumber, 9);
    QCOMPARE(made.functions, RemakeHost::headerOf("").functions);
}

void RemakeTest::takesTheTargetOfTheImageIfTheDesignHasNone()
{
    RemakeHost host;
    FcfHeader header = RemakeHost::headerOf("top.fcf");
    header.moduleCode = 1;
    header.configNumber = 7;
    host.addImage("top", header, SampleImage::binary(5000, 'a'));
    // The slot of the design is out of range, so that it is none.
    Design* const design =
        host.open(R"({ "name": "ZORV Pelk Config Number", "value": 11, "category": [] })");
    host.select("top.bin");
    clickTool(host, "Design.MakeAgain");

    const FcfHeader made = host.header("top.fcf");
    QVERIFY(made.date != header.date);
    QCOMPARE(made.moduleCode, 1);
    QCOMPARE(made.deviceCode, 4);
    QCOMPARE(made.configNumber, 7);
    QCOMPARE(design->designProperty("ZORV Pelk Module"), QVariant("DFE"));
    QCOMPARE(design->designProperty("ZORV Pelk Device"), QVariant("Clock_Master_Device"));
    QCOMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(7));
}

void RemakeTest::asksForATargetThatIsNotKnown()
{
    RemakeHost host;
    FcfHeader header = RemakeHost::headerOf("top.fcf");
    header.moduleCode = 1;
    header.deviceCode = 8;
    header.configNumber = 5;
    host.addImage("top", header, SampleImage::binary(5000, 'a'));
    Design* const design = host.open("");
    host.select("top.bin");
    host.dialogs().leaveTo([](QWidget* dialog) {
        const auto close = qScopeGuard([dialog] { RemakeHost::closeIfOpen(dialog); });
        auto* const buttons = dialog->findChild<QDialogButtonBox*>();
        auto* const module = dialog->findChild<QComboBox*>("TargetModule");
        auto* const device = dialog->findChild<QComboBox*>("TargetDevice");
        QCOMPARE(module->currentText(), QString());
        QCOMPARE(dialog->findChild<QComboBox*>("TargetSlot")->currentText(), QString("5"));
        QVERIFY(!buttons->button(QDialogButtonBox::Ok)->isEnabled());

        module->setFocus();
        QTest::keyClicks(module, "GPM");
        QVERIFY(!buttons->button(QDialogButtonBox::Ok)->isEnabled());
        QTest::keyClicks(device, "Processing_FPGA_1");
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    clickTool(host, "Design.MakeAgain");

    QVERIFY(host.dialogs().allGiven());
    const FcfHeader made = host.header("top.fcf");
    QCOMPARE(made.moduleCode, 2);
    QCOMPARE(made.deviceCode, 2);
    QCOMPARE(made.configNumber, 5);
    QCOMPARE(design->designProperty("ZORV Pelk Device"), QVariant("Processing_FPGA_1"));
}

void RemakeTest::changesNothingWhenTheQuestionIsCancelled()
{
    RemakeHost host;
    FcfHeader header = RemakeHost::headerOf("top.fcf");
    header.moduleCode = 9;
    host.addImage("top", header, SampleImage::binary(5000, 'a'));
    const QByteArray before = host.bytesOf("radar/top.fcf");
    Design* const design = host.open("");
    host.select("top.bin");
    host.dialogs().press(Qt::Key_Escape);
    clickTool(host, "Design.MakeAgain");

    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(host.bytesOf("radar/top.fcf"), before);
    QVERIFY(!design->isModified());
}

void RemakeTest::replacesTheDigestToo()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    host.open();
    host.writeFile("radar/top.fcf.sha256", QByteArray(64, 'a') + "  top.fcf\n");
    host.select("top.fcf");
    clickTool(host, "Design.MakeAgain");

    const QByteArray digest =
        QCryptographicHash::hash(host.bytesOf("radar/top.fcf"), QCryptographicHash::Sha256);
    QCOMPARE(host.bytesOf("radar/top.fcf.sha256"), digest.toHex() + "  top.fcf\n");
}

void RemakeTest::leavesAllFilesWhenTheImageIsDamaged()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    QByteArray damaged = host.bytesOf("radar/top.fcf");
    damaged.replace("Function CI No", "Function C\r No");
    host.writeFile("radar/top.fcf", damaged);
    const QByteArray companion = host.bytesOf("radar/top.txt");
    Design* const design = host.open();
    host.select("top.bin");
    host.dialogs().click(QMessageBox::Ok);
    clickTool(host, "Design.MakeAgain");

    QVERIFY(host.dialogs().allGiven());
    QVERIFY2(host.dialogs().texts().first().startsWith("top.fcf was not made again.\n\ntop.fcf: "),
             qPrintable(host.dialogs().texts().first()));
    QCOMPARE(host.bytesOf("radar/top.fcf"), damaged);
    QCOMPARE(host.bytesOf("radar/top.txt"), companion);
    QVERIFY(!design->isModified());
}

void RemakeTest::leavesAllFilesWhenTheDiskIsFull()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    host.open();
    const QByteArray before = host.bytesOf("radar/top.fcf");
    host.select("top.bin");
    host.dialogs().click(QMessageBox::Ok);
    {
        const FullDisk disk(3000);
        clickTool(host, "Design.MakeAgain");
    }
    QVERIFY(host.dialogs().allGiven());
    QVERIFY2(host.dialogs().texts().first().endsWith("File too large"),
             qPrintable(host.dialogs().texts().first()));
    QCOMPARE(host.bytesOf("radar/top.fcf"), before);
}

void RemakeTest::worksWithTwoDesigns()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    host.openDesign("other");
    Design* const design = host.open();
    design->setVersion(2, 6);
    host.select("top.fcf");
    clickTool(host, "Design.MakeAgain");
    QCOMPARE(host.header("top.fcf").versionMinor, 6);
    QCOMPARE(design->fileAt(host.path("radar/top.fcf"))->versionAssociation(), QString("2.6"));
}

void RemakeTest::canBeUndoneInTheDesign()
{
    RemakeHost host;
    host.addImage("top", RemakeHost::headerOf("top.fcf"), SampleImage::binary(5000, 'a'));
    Design* const design = host.open();
    design->setVersion(1, 1);
    host.select("top.bin");
    clickTool(host, "Design.MakeAgain");
    QVERIFY(design->fileAt(host.path("radar/top.txt")));
    const QByteArray made = host.bytesOf("radar/top.fcf");

    host.press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!design->fileAt(host.path("radar/top.txt")));
    QCOMPARE(design->fileAt(host.path("radar/top.fcf"))->versionAssociation(), QString("1.0"));
    QCOMPARE(host.bytesOf("radar/top.fcf"), made);
}

HOST_TEST(RemakeTest)

#include "RemakeTest.moc"
