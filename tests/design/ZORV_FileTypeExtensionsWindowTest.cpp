#include "design/DesignFixture.h"

#include "fcf/FcfWriter.h"
#include "generator/FunctionEntries.h"
#include "generator/PelkFcfGenerator.h"
#include "support/EventCount.h"
#include "support/ModalAnswer.h"
#include "support/PlainFcf.h"

#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCore/ObjectManager.h>

#include <QDesktopWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

#include <algorithm>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::SharedProperty;

namespace {

QString textOf(const char* lineEdit)
{
    return DesignFixture::window()->findChild<QLineEdit*>(lineEdit)->text();
}

QString description()
{
    return DesignFixture::window()->findChild<QTextEdit*>("DescriptionMemo")->toPlainText();
}

void giveProperty(Design* design, const char* name, const QVariant& value)
{
    design->setDesignProperty(name, value, QtilitiesCategory("Target"));
}

} // namespace

class ZORV_FileTypeExtensionsWindowTest : public QObject {
    Q_OBJECT

private slots:
    void deletesItselfWhenClosed();
    void isCentredOnTheAvailableScreen();
    void isReusedWhileOpen();
    void survivesADesignLeavingIt();
    void isFilledFromTheDesign();
    void isGivenTheTargetUpToTheFirstGap_data();
    void isGivenTheTargetUpToTheFirstGap();
    void isGivenNoDescriptionWithoutASharedProperty();
    void isGivenTheDescriptionWithoutATarget();
    void staysEmptyWithoutExactlyOneDesign_data();
    void staysEmptyWithoutExactlyOneDesign();
    void loadsACompanion();
    void isClearedBeforeItLoadsAgain();
    void loadsIntoAWindowThatListsFunctionsOfItsOwn();
    void isBroughtToTheFront_data();
    void isBroughtToTheFront();
    void keepsWhatWasTypedWhereNoCompanionIsLoaded_data();
    void keepsWhatWasTypedWhereNoCompanionIsLoaded();
    void isFilledFromTheOpenDesignWhateverTheFilesOwn();
    void keepsItsDescriptionWhereTheDesignHasNone_data();
    void keepsItsDescriptionWhereTheDesignHasNone();
};

void ZORV_FileTypeExtensionsWindowTest::deletesItselfWhenClosed()
{
    DesignFixture fixture;
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    create->trigger();
    QPointer<PelkFcfGenerator> window = fixture.window();
    QVERIFY(window);
    QVERIFY(window->isWindow() && !window->parent());
    QVERIFY(window->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(!window->testAttribute(Qt::WA_QuitOnClose));
    QVERIFY(fixture.closeWindow());
    QVERIFY(!window);
    create->trigger();
    QVERIFY(fixture.window());
}

void ZORV_FileTypeExtensionsWindowTest::isCentredOnTheAvailableScreen()
{
    DesignFixture fixture;
    // The window's size is that of its form: only a window not yet shown has it.
    const PelkFcfGenerator likeIt;
    const QPoint expected =
        QApplication::desktop()->availableGeometry(&likeIt).center() - likeIt.rect().center();
    fixture.actionFor(fixture.addFile("top.bin"))->trigger();
    QCOMPARE(fixture.window()->pos(), expected);
}

void ZORV_FileTypeExtensionsWindowTest::isReusedWhileOpen()
{
    DesignFixture fixture;
    fixture.actionFor(fixture.addFile("top.bin"))->trigger();
    PelkFcfGenerator* const window = fixture.window();
    fixture.actionFor(fixture.addFile("other.bin"))->trigger();
    QCOMPARE(fixture.window(), window);
    QCOMPARE(textOf("txtInputFile"), fixture.path("other.bin"));
    // This is no companion, which the window says in a box.
    ModalAnswer dialogs;
    dialogs.click(QMessageBox::Ok);
    fixture.actionFor(fixture.addFile("top.txt"))->trigger();
    QCOMPARE(fixture.window(), window);

    QSignalSpy refreshed(fixture.design(), &Design::filesRefreshed);
    emit window->newFilesCreated({fixture.writeFile("top.fcf")});
    QCOMPARE(refreshed.count(), 1);
}

void ZORV_FileTypeExtensionsWindowTest::survivesADesignLeavingIt()
{
    DesignFixture fixture;
    fixture.actionFor(fixture.addFile("top.bin"))->trigger();
    fixture.closeDesign();
    emit fixture.window()->newFilesCreated({fixture.writeFile("top.fcf")});
    QVERIFY(fixture.closeWindow());
    QVERIFY(fixture.log().isEmpty());
}

void ZORV_FileTypeExtensionsWindowTest::isFilledFromTheDesign()
{
    DesignFixture fixture;
    giveProperty(fixture.design(), "ZORV Pelk Module", "GPM");
    giveProperty(fixture.design(), "ZORV Pelk Device", "Processing_FPGA_2");
    giveProperty(fixture.design(), "ZORV Pelk Config Number", 7);
    fixture.design()->setVersionChanges("Clock corrected");
    fixture.actionFor(fixture.addFile("top.bin", QByteArray(4321, 'x')))->trigger();

    PelkFcfGenerator* const window = fixture.window();
    QVERIFY(window);
    QCOMPARE(textOf("MajorVerEditBox"), QString("2"));
    QCOMPARE(textOf("MinorVerEditBox"), QString("7"));
    const QLineEdit* const author = window->findChild<QLineEdit*>("AuthoEditBox");
    const QString user = DesignManager::instance()->currentUserName();
    QVERIFY(!user.isEmpty());
    QCOMPARE(author->text(), user.left(author->maxLength()));
    QCOMPARE(textOf("txtInputFile"), fixture.path("top.bin"));
    QVERIFY(window->findChild<QLabel*>("BinFileSize")->text().startsWith("4321"));
    QCOMPARE(textOf("CiNumEditBox"), QString("0"));
    QCOMPARE(window->getModule(), QString("GPM"));
    QCOMPARE(window->getDevice(), QString("Processing_FPGA_2"));
    QCOMPARE(window->getConfigNum(), 7);
    QCOMPARE(description(), QString("Clock corrected"));
}

void ZORV_FileTypeExtensionsWindowTest::isGivenTheTargetUpToTheFirstGap_data()
{
    QTest::addColumn<QVariant>("module");
    QTest::addColumn<QVariant>("device");
    QTest::addColumn<QVariant>("number");
    QTest::addColumn<QString>("shownModule");
    QTest::addColumn<QString>("shownDevice");
    QTest::addColumn<int>("shownNumber");

    const QVariant none;
    const QString first = "Interface_FPGA";
    QTest::newRow("nothing") << none << none << none << "DFE" << first << 1;
    QTest::newRow("no module") << none << QVariant("Processing_FPGA_1") << QVariant(5) << "DFE"
                               << first << 1;
    QTest::newRow("an empty module")
        << QVariant("") << QVariant("Processing_FPGA_1") << QVariant(5) << "DFE" << first << 1;
    QTest::newRow("no device") << QVariant("GPM") << none << QVariant(5) << "GPM" << first << 1;
    QTest::newRow("an empty device")
        << QVariant("GPM") << QVariant("") << QVariant(5) << "GPM" << first << 1;
    QTest::newRow("no number") << QVariant("GPM") << QVariant("Processing_FPGA_3") << none << "GPM"
                               << "Processing_FPGA_3" << 1;
    QTest::newRow("everything") << QVariant("GPM") << QVariant("Processing_FPGA_3") << QVariant(5)
                                << "GPM"
                                << "Processing_FPGA_3" << 5;
    QTest::newRow("a number as a text")
        << QVariant("GPM") << QVariant("Processing_FPGA_3") << QVariant("10") << "GPM"
        << "Processing_FPGA_3" << 10;
    QTest::newRow("an unknown module ends nothing")
        << QVariant("DFE1") << QVariant("Processing_FPGA_1") << QVariant(5) << "DFE"
        << "Processing_FPGA_1" << 5;
    QTest::newRow("a device of another module")
        << QVariant("DFE2") << QVariant("Interface_FPGA") << QVariant(5) << "DFE2"
        << "Processing_FPGA" << 5;
    QTest::newRow("a number out of range")
        << QVariant("DFE") << QVariant("Interface_FPGA") << QVariant(11) << "DFE" << first << 1;
}

void ZORV_FileTypeExtensionsWindowTest::isGivenTheTargetUpToTheFirstGap()
{
    QFETCH(QVariant, module);
    QFETCH(QVariant, device);
    QFETCH(QVariant, number);
    DesignFixture fixture;
    giveProperty(fixture.design(), "ZORV Pelk Module", module);
    giveProperty(fixture.design(), "ZORV Pelk Device", device);
    giveProperty(fixture.design(), "ZORV Pelk Config Number", number);
    fixture.actionFor(fixture.addFile("top.bin"))->trigger();
    QTEST(fixture.window()->getModule(), "shownModule");
    QTEST(fixture.window()->getDevice(), "shownDevice");
    QTEST(fixture.window()->getConfigNum(), "shownNumber");
}

void ZORV_FileTypeExtensionsWindowTest::isGivenNoDescriptionWithoutASharedProperty()
{
    DesignFixture fixture;
    fixture.design()->setProperty("CurrentVersionChanges", "not shared");
    fixture.actionFor(fixture.addFile("top.bin"))->trigger();
    QCOMPARE(description(), QString());
}

void ZORV_FileTypeExtensionsWindowTest::isGivenTheDescriptionWithoutATarget()
{
    DesignFixture fixture;
    fixture.design()->setVersionChanges("Clock corrected");
    fixture.actionFor(fixture.addFile("top.bin"))->trigger();
    QCOMPARE(description(), QString("Clock corrected"));
}

void ZORV_FileTypeExtensionsWindowTest::staysEmptyWithoutExactlyOneDesign_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("designs");

    QTest::newRow("a binary, no design") << "top.bin" << 0;
    QTest::newRow("a binary, two designs") << "top.bin" << 2;
    QTest::newRow("a companion, no design") << "top.txt" << 0;
    QTest::newRow("a companion, two designs") << "top.txt" << 2;
}

void ZORV_FileTypeExtensionsWindowTest::staysEmptyWithoutExactlyOneDesign()
{
    QFETCH(QString, file);
    QFETCH(int, designs);
    DesignFixture fixture;
    giveProperty(fixture.design(), "ZORV Pelk Module", "GPM");
    fixture.design()->setVersionChanges("Clock corrected");
    QAction* const action = fixture.actionFor(fixture.addFile(file));
    if (designs == 2)
        fixture.openSecondDesign();
    else
        DesignManager::instance()->removeDesign(fixture.design());
    action->trigger();

    QVERIFY(fixture.window());
    for (const char* name :
         {"txtInputFile", "MajorVerEditBox", "MinorVerEditBox", "AuthoEditBox", "CiNumEditBox"})
        QCOMPARE(textOf(name), QString());
    QCOMPARE(description(), QString());
    QCOMPARE(fixture.window()->getModule(), QString("DFE"));
}

void ZORV_FileTypeExtensionsWindowTest::loadsACompanion()
{
    DesignFixture fixture;
    fixture.actionFor(fixture.addFile("top.bin", QByteArray(5000, 'x')))->trigger();
    fixture.window()->setCINumber("4711");
    fixture.window()->setDescription("First\nSecond");
    const QPointer<PelkFcfGenerator> first = fixture.window();
    QTest::mouseClick(first->findChild<QPushButton*>("GenerateButton"), Qt::LeftButton);
    QTRY_VERIFY(!first);

    fixture.actionFor(fixture.design()->fileAt("top.txt"))->trigger();
    QVERIFY(fixture.window());
    QCOMPARE(textOf("CiNumEditBox"), QString("4711"));
    QCOMPARE(textOf("MajorVerEditBox"), QString("2"));
    QCOMPARE(textOf("MinorVerEditBox"), QString("7"));
    QCOMPARE(description(), QString("First\nSecond"));
    QCOMPARE(textOf("txtInputFile"), fixture.path("top.bin"));
}

void ZORV_FileTypeExtensionsWindowTest::isClearedBeforeItLoadsAgain()
{
    DesignFixture fixture;
    FcfHeader header;
    header.fileName = "top.fcf";
    header.ciNumber = "4711";
    header.description = "First\nSecond";
    header.functions << FcfFunction{"A", "a", "1", "d"} << FcfFunction{"B", "b", "2", "e"};
    QAction* const open =
        fixture.actionFor(fixture.addFile("top.txt", FcfWriter().compose(header)));
    fixture.writeFile("top.bin", QByteArray(5000, 'x'));
    for (int times = 0; times < 2; ++times) {
        open->trigger();
        const PelkFcfGenerator* const window = fixture.window();
        QCOMPARE(window->findChild<QComboBox*>("FunctionComboBox")->count(), 2);
        QCOMPARE(FunctionEntries::fault(window), QString());
        QCOMPARE(description(), header.description);
    }
    fixture.window()->setAuthor("a");
    const QPointer<PelkFcfGenerator> window = fixture.window();
    QTest::mouseClick(window->findChild<QPushButton*>("GenerateButton"), Qt::LeftButton);
    QTRY_VERIFY(!window);
    const PlainFcf image = PlainFcf::fromFile(fixture.path("top.fcf").toStdString());
    QCOMPARE(std::count(image.lines.begin(), image.lines.end(), "---"), 3);
    QCOMPARE(image.valueOf("Function name: "), std::string("A"));
}

void ZORV_FileTypeExtensionsWindowTest::loadsIntoAWindowThatListsFunctionsOfItsOwn()
{
    DesignFixture fixture;
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    create->trigger();
    PelkFcfGenerator* const window = fixture.window();
    window->findChild<QLineEdit*>("EditFunctionName")->setText("own");
    QTest::mouseClick(window->findChild<QPushButton*>("UploadFunctionButton"), Qt::LeftButton);
    // This is no companion: what the window had is gone all the same, form and memory alike.
    ModalAnswer dialogs;
    dialogs.click(QMessageBox::Ok);
    fixture.actionFor(fixture.addFile("top.txt"))->trigger();
    QCOMPARE(FunctionEntries::of(window), QVector<QString>());
    QCOMPARE(FunctionEntries::fault(window), QString());
}

void ZORV_FileTypeExtensionsWindowTest::isBroughtToTheFront_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("by Create FCF") << "top.bin";
    QTest::newRow("by Open FCF") << "top.txt";
}

void ZORV_FileTypeExtensionsWindowTest::isBroughtToTheFront()
{
    QFETCH(QString, file);
    DesignFixture fixture;
    ModalAnswer dialogs;
    dialogs.click(QMessageBox::Ok);
    dialogs.click(QMessageBox::Ok);
    QAction* const action = fixture.actionFor(fixture.addFile(file));
    action->trigger();
    PelkFcfGenerator* const window = fixture.window();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QWidget host;
    host.show();
    host.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&host));

    const EventCount raised(window, QEvent::ZOrderChange);
    action->trigger();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(raised.count(), 1);

    window->showMinimized();
    QVERIFY(window->isMinimized());
    dialogs.click(QMessageBox::Ok);
    action->trigger();
    QVERIFY(!window->isMinimized());
}

void ZORV_FileTypeExtensionsWindowTest::keepsWhatWasTypedWhereNoCompanionIsLoaded_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("a file that is gone") << false;
    QTest::newRow("a file that is no companion") << true;
}

void ZORV_FileTypeExtensionsWindowTest::keepsWhatWasTypedWhereNoCompanionIsLoaded()
{
    QFETCH(bool, isThere);
    DesignFixture fixture;
    fixture.actionFor(fixture.addFile("top.bin", QByteArray(4321, 'x')))->trigger();
    PelkFcfGenerator* const window = fixture.window();
    window->setAuthor("R. Vos");
    window->setCINumber("4711");
    window->setDescription("typed");
    window->findChild<QLineEdit*>("EditFunctionName")->setText("own");
    QTest::mouseClick(window->findChild<QPushButton*>("UploadFunctionButton"), Qt::LeftButton);

    ModalAnswer dialogs;
    if (isThere)
        dialogs.click(QMessageBox::Ok);
    QAction* const open = fixture.actionFor(fixture.addFile("top.txt", "something else"));
    if (!isThere)
        QVERIFY(QFile::remove(fixture.path("top.txt")));
    open->trigger();
    QCOMPARE(textOf("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(textOf("CiNumEditBox"), QString("4711"));
    QCOMPARE(description(), QString("typed"));
    QCOMPARE(textOf("txtInputFile"), fixture.path("top.bin"));
    const QString size = window->findChild<QLabel*>("BinFileSize")->text();
    QVERIFY2(size.startsWith("4321") != isThere, qPrintable(size));
    QCOMPARE(window->findChild<QComboBox*>("FunctionComboBox")->count(), isThere ? 0 : 1);
    QCOMPARE(FunctionEntries::fault(window), QString());
}

void ZORV_FileTypeExtensionsWindowTest::isFilledFromTheOpenDesignWhateverTheFilesOwn()
{
    DesignFixture fixture;
    // Not open in the host: it is in no list of designs.
    Design other("/some/design", "Firmware Design");
    other.setVersion(9, 9);
    giveProperty(&other, "ZORV Pelk Module", "GPM");
    fixture.actionFor(other.restoreFile("top.bin"))->trigger();
    QCOMPARE(textOf("MajorVerEditBox"), QString("2"));
    QCOMPARE(textOf("MinorVerEditBox"), QString("7"));
    QCOMPARE(fixture.window()->getModule(), QString("DFE"));
}

void ZORV_FileTypeExtensionsWindowTest::keepsItsDescriptionWhereTheDesignHasNone_data()
{
    QTest::addColumn<bool>("hasProperty");
    QTest::newRow("no property") << false;
    QTest::newRow("a property without a value") << true;
}

void ZORV_FileTypeExtensionsWindowTest::keepsItsDescriptionWhereTheDesignHasNone()
{
    QFETCH(bool, hasProperty);
    DesignFixture fixture;
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    create->trigger();
    fixture.window()->setDescription("typed");
    if (hasProperty)
        ObjectManager::setSharedProperty(fixture.design(),
                                         SharedProperty("CurrentVersionChanges", QVariant()));
    create->trigger();
    QCOMPARE(description(), QString("typed"));
}

QTEST_MAIN(ZORV_FileTypeExtensionsWindowTest)
#include "ZORV_FileTypeExtensionsWindowTest.moc"
