#include "generator/GeneratorTest.h"

#include <QClipboard>
#include <QtTest>

class GeneratorFieldsTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void offersTheDevicesOfEachModule_data();
    void offersTheDevicesOfEachModule();
    void leavesTheDevicesEmptyForAnUnknownModule();
    void takesModulesByTheirExactText();
    void takesDevicesOfTheModuleOnly();
    void takesSlotsFromOneToTen();
    void keepsTheDeviceWhenTheModuleIsSetAgain();
    void setsVersionAuthorNumberAndDescription();
    void takesMarkupForPlainText();
    void pastesMarkupAsPlainText();
    void clearScreenEmptiesAllButTheTarget();
};

void GeneratorFieldsTest::offersTheDevicesOfEachModule_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("devices");
    QTest::newRow("DFE") << 0
                         << QStringList{"Interface_FPGA", "Processing_FPGA_1",
                                        "Clock_Master_Device"};
    QTest::newRow("DFE2") << 1 << QStringList{"Processing_FPGA"};
    QTest::newRow("GPM") << 2
                         << QStringList{"Interface_FPGA", "Processing_FPGA_1", "Processing_FPGA_2",
                                        "Processing_FPGA_3"};
}

void GeneratorFieldsTest::offersTheDevicesOfEachModule()
{
    QFETCH(int, index);
    driver->select("ModuleComboBox", 2);
    driver->select("ModuleComboBox", index);
    QCOMPARE(driver->window()->getModule(), QString(QTest::currentDataTag()));
    QTEST(driver->items("FpgaComboBox"), "devices");
    QCOMPARE(driver->find<QComboBox>("FpgaComboBox")->currentIndex(), 0);
}

void GeneratorFieldsTest::leavesTheDevicesEmptyForAnUnknownModule()
{
    auto* const modules = driver->find<QComboBox>("ModuleComboBox");
    modules->addItem("dfe");
    QTest::keyClick(modules, Qt::Key_End);
    QCOMPARE(driver->window()->getModule(), QString("dfe"));
    QCOMPARE(driver->find<QComboBox>("FpgaComboBox")->count(), 0);
    QCOMPARE(driver->window()->getDevice(), QString());
}

void GeneratorFieldsTest::takesModulesByTheirExactText()
{
    driver->window()->setModule("GPM");
    QCOMPARE(driver->window()->getModule(), QString("GPM"));
    for (const char* unknown : {"dfe", "DFE1", "DF", "DFE ", ""}) {
        driver->window()->setModule(unknown);
        QCOMPARE(driver->window()->getModule(), QString("GPM"));
    }
}

void GeneratorFieldsTest::takesDevicesOfTheModuleOnly()
{
    driver->window()->setModule("DFE2");
    driver->window()->setDevice("Interface_FPGA");
    QCOMPARE(driver->window()->getDevice(), QString("Processing_FPGA"));
    driver->window()->setModule("GPM");
    driver->window()->setDevice("Processing_FPGA_2");
    driver->window()->setDevice("processing_fpga_1");
    QCOMPARE(driver->window()->getDevice(), QString("Processing_FPGA_2"));
}

void GeneratorFieldsTest::takesSlotsFromOneToTen()
{
    for (int slot = 1; slot <= 10; ++slot) {
        driver->window()->setConfigNum(slot);
        QCOMPARE(driver->window()->getConfigNum(), slot);
    }
    driver->window()->setConfigNum(7);
    for (const int none : {0, 11, -1}) {
        driver->window()->setConfigNum(none);
        QCOMPARE(driver->window()->getConfigNum(), 7);
    }
}

void GeneratorFieldsTest::keepsTheDeviceWhenTheModuleIsSetAgain()
{
    driver->window()->setModule("GPM");
    driver->window()->setDevice("Processing_FPGA_3");
    QSignalSpy changed(driver->find<QComboBox>("FpgaComboBox"),
                       QOverload<int>::of(&QComboBox::currentIndexChanged));
    driver->window()->setModule("GPM");
    QCOMPARE(changed.count(), 0);
    QCOMPARE(driver->window()->getDevice(), QString("Processing_FPGA_3"));
}

void GeneratorFieldsTest::setsVersionAuthorNumberAndDescription()
{
    driver->type("MajorVerEditBox", "9");
    driver->window()->setVersion(12, -3);
    driver->window()->setAuthor("R. Vos");
    driver->window()->setCINumber("CI-7");
    driver->window()->setDescription("one\ntwo");
    QCOMPARE(driver->text("MajorVerEditBox"), QString("12"));
    QCOMPARE(driver->text("MinorVerEditBox"), QString("-3"));
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->text("CiNumEditBox"), QString("CI-7"));
    QCOMPARE(driver->text("DescriptionMemo"), QString("one\ntwo"));
}

void GeneratorFieldsTest::takesMarkupForPlainText()
{
    const QString markup = QString::fromUtf8("<b>A&amp;B</b> \"雷达\"");
    driver->window()->setDescription(markup);
    QCOMPARE(driver->text("DescriptionMemo"), markup);
    driver->upload(markup, "<i>", markup, "&");
    driver->select("FunctionComboBox", 0);
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor(), QStringList({markup, "<i>", markup, "&"}));
}

void GeneratorFieldsTest::pastesMarkupAsPlainText()
{
    auto* const data = new QMimeData;
    data->setHtml("<b>bold</b>");
    data->setText("bold");
    QApplication::clipboard()->setMimeData(data);
    for (const char* memo : {"DescriptionMemo", "DescriptionMemoFunctions"}) {
        auto* const edit = driver->find<QTextEdit>(memo);
        edit->setFocus();
        QTest::keySequence(edit, QKeySequence::Paste);
        QCOMPARE(edit->toPlainText(), QString("bold"));
        QVERIFY(!edit->toHtml().contains("font-weight:600"));
    }
}

void GeneratorFieldsTest::clearScreenEmptiesAllButTheTarget()
{
    driver->window()->setModule("GPM");
    driver->window()->setDevice("Processing_FPGA_2");
    driver->window()->setConfigNum(5);
    driver->upload("kept in memory", "a", "d", "1");
    driver->fillIn(driver->binary("top.bin", 5000));
    driver->window()->setVersion(1, 2);
    driver->window()->setDescription("d");
    driver->upload("second", "a", "d", "1");
    driver->type("EditFunctionName", "being edited");
    driver->find<QLabel>("finalSize")->setText("7 bytes");

    driver->window()->clearScreen();
    for (const char* name :
         {"txtInputFile", "AuthoEditBox", "CiNumEditBox", "MajorVerEditBox", "MinorVerEditBox",
          "DescriptionMemo", "StatusBar", "BinFileSize", "BinFilePages", "BinFileBlocks",
          "finalPages", "finalBlocks", "finalSize"})
        QCOMPARE(driver->text(name), QString());
    QCOMPARE(driver->editor(), QStringList({"", "", "", ""}));
    QCOMPARE(driver->functionNames(), QStringList());
    QCOMPARE(driver->window()->getModule(), QString("GPM"));
    QCOMPARE(driver->window()->getDevice(), QString("Processing_FPGA_2"));
    QCOMPARE(driver->window()->getConfigNum(), 5);

    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor(), QStringList({"kept in memory", "a", "d", "1"}));
}

QTEST_MAIN(GeneratorFieldsTest)
#include "GeneratorFieldsTest.moc"
