#include "generator/GeneratorTest.h"
#include "support/SampleHeaders.h"

#include "fcf/FcfWriter.h"
#include "support/PlainFcf.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QPushButton>
#include <QtTest>

namespace {

QString loaded(const QString& path)
{
    return "<font color='green'>Loaded " + path + " successfully.</font>";
}

} // namespace

class GeneratorLoadTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void loadsACompanionIntoTheForm();
    void loadsAnImageLikeItsCompanion();
    void loadsThroughTheFileMenu();
    void asksForADocumentInTheCurrentFolder();
    void leavesTheEditorFilledAfterALoadByMenu();
    void addsToTheFunctionsListedAlready();
    void survivesAnEditOfFunctionsListedBeforeALoad();
    void addsToTheDescriptionThatIsThere();
    void locksTheEditorUntilModifyIsTicked();
    void selectsTheTarget_data();
    void selectsTheTarget();
    void doesNotTakeTheFilesTextsForMarkup();
    void pointsBackToTheBinaryOnlyWhereAPathHasTxt();
    void doesNotTakeTheSizesReadForTheNextHeader();
    void saysWhetherTheWholeTextWasRead();
    void namesThePathInTheFormAndNotTheOneRead();
    void pointsAtTheBinaryAfterAFailedLoadByMenuToo();
    void leavesModifyTicked();
};

void GeneratorLoadTest::loadsACompanionIntoTheForm()
{
    const QString companion = driver->writeHeader("top.txt", sampleHeader());
    driver->window()->setTxtFile(companion);
    QCOMPARE(driver->text("StatusBar"), loaded(companion));
    QCOMPARE(driver->text("txtInputFile"), driver->path("top.bin"));
    QCOMPARE(driver->text("finalPages"), QString("1 Pages"));
    QCOMPARE(driver->text("finalBlocks"), QString("2 Blocks"));
    QCOMPARE(driver->text("finalSize"), QString("3 bytes"));
    QCOMPARE(driver->text("BinFilePages"), QString("4 Pages"));
    QCOMPARE(driver->text("BinFileBlocks"), QString("5 Blocks"));
    QCOMPARE(driver->text("BinFileSize"), QString("6 bytes"));
    QCOMPARE(driver->window()->getModule(), QString("DFE"));
    QCOMPARE(driver->window()->getDevice(), QString("Clock_Master_Device"));
    QCOMPARE(driver->window()->getConfigNum(), 7);
    QCOMPARE(driver->text("MajorVerEditBox"), QString("8"));
    QCOMPARE(driver->text("MinorVerEditBox"), QString("9"));
    QCOMPARE(driver->text("CiNumEditBox"), QString("CI-0042"));
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->text("DescriptionMemo"), QString("one\ntwo\nthree"));
    QCOMPARE(driver->find<QTextEdit>("DescriptionMemo")->document()->blockCount(), 3);
    QCOMPARE(driver->functionNames(), QStringList({" padded ", "plain"}));
    QVERIFY(driver->find<QPushButton>("btnRemove")->isEnabled());
    QCOMPARE(driver->editor(), QStringList({"", "", "", ""}));

    driver->select("FunctionComboBox", 1);
    QCOMPARE(driver->editor(), QStringList({"plain", "author", "first,secondthird", " 42"}));
    driver->select("FunctionComboBox", 0);
    QCOMPARE(driver->editor(), QStringList({"padded", "author", "first,secondthird", " 42"}));
}

void GeneratorLoadTest::loadsAnImageLikeItsCompanion()
{
    const QByteArray text = FcfWriter().compose(sampleHeader());
    const QString image = driver->write("top.fcf", text + FcfWriter().fillerFor(text.size()) +
                                                       QByteArray(100000, '\n'));
    driver->window()->setTxtFile(image);
    QCOMPARE(driver->text("StatusBar"), loaded(image));
    QCOMPARE(driver->text("txtInputFile"), image);
    QCOMPARE(driver->functionNames(), QStringList({" padded ", "plain"}));
}

void GeneratorLoadTest::loadsThroughTheFileMenu()
{
    driver->upload("old", "o", "o", "o");
    driver->fillIn(driver->binary("old.bin", 10));
    driver->window()->setDescription("old");
    driver->window()->setModule("GPM");

    FcfHeader header = sampleHeader();
    header.moduleCode = 77;
    const QString companion = driver->writeHeader("top.txt", header);
    driver->dialogs().choose(companion);
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->text("StatusBar"), loaded(companion));
    QCOMPARE(driver->text("txtInputFile"), driver->path("top.bin"));
    QCOMPARE(driver->functionNames(), QStringList({" padded ", "plain"}));
    QCOMPARE(driver->text("DescriptionMemo"), QString("one\ntwo\nthree"));
    QCOMPARE(driver->window()->getModule(), QString("GPM"));
}

void GeneratorLoadTest::asksForADocumentInTheCurrentFolder()
{
    driver->dialogs().cancel();
    driver->dialogs().inspect([this](QWidget* widget) {
        const auto* const dialog = qobject_cast<QFileDialog*>(widget);
        QCOMPARE(dialog->windowTitle(), QString("Open Document"));
        QCOMPARE(dialog->nameFilters(), QStringList("Document files (*.txt)"));
        QCOMPARE(dialog->directory().absolutePath(), QDir::currentPath());
        QCOMPARE(dialog->parentWidget(), driver->window());
    });
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->dialogs().texts(), QStringList("Open Document"));
}

void GeneratorLoadTest::leavesTheEditorFilledAfterALoadByMenu()
{
    driver->dialogs().choose(driver->writeHeader("top.txt", sampleHeader()));
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->editor(), QStringList({"plain", "author", "first,secondthird", " 42"}));
}

void GeneratorLoadTest::addsToTheFunctionsListedAlready()
{
    driver->upload("old", "o", "o", "o");
    driver->window()->setTxtFile(driver->writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->functionNames(), QStringList({"old", " padded ", "plain"}));
    // The memory begins anew with the file's functions.
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor().first(), QString("padded"));
    driver->window()->displayFunctionInfo(2);
    QCOMPARE(driver->editor().first(), QString());
}

void GeneratorLoadTest::survivesAnEditOfFunctionsListedBeforeALoad()
{
    driver->allowListFaults();
    driver->upload("old", "o", "o", "o");
    driver->window()->setTxtFile(driver->writeHeader("top.txt", sampleHeader()));
    driver->find<QCheckBox>("ModifyFunctionCheckBox")->setChecked(false);
    driver->click("ModifyFunctionCheckBox");
    driver->dialogs().click(QMessageBox::Yes);
    driver->upload("plain", "p", "p", "p");
    driver->window()->displayFunctionInfo(2);
    QCOMPARE(driver->editor(), QStringList({"plain", "p", "p", "p"}));
    for (int left = 3; left > 0; --left) {
        driver->dialogs().click(QMessageBox::Yes);
        driver->select("FunctionComboBox", left - 1);
        driver->click("btnRemove");
    }
    QCOMPARE(driver->functionNames(), QStringList());
}

void GeneratorLoadTest::addsToTheDescriptionThatIsThere()
{
    driver->window()->setDescription("zero");
    driver->window()->setTxtFile(driver->writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->text("DescriptionMemo"), QString("zero\none\ntwo\nthree"));
}

void GeneratorLoadTest::locksTheEditorUntilModifyIsTicked()
{
    driver->window()->setTxtFile(driver->writeHeader("top.txt", sampleHeader()));
    QVERIFY(!driver->find<QWidget>("EditFunctionName")->isEnabled());
    QVERIFY(driver->find<QCheckBox>("ModifyFunctionCheckBox")->isEnabled());
    driver->click("ModifyFunctionCheckBox");
    QVERIFY(driver->find<QWidget>("EditFunctionName")->isEnabled());
    driver->click("ModifyFunctionCheckBox");
    QVERIFY(!driver->find<QWidget>("EditFunctionName")->isEnabled());
}

void GeneratorLoadTest::selectsTheTarget_data()
{
    QTest::addColumn<int>("moduleCode");
    QTest::addColumn<int>("deviceCode");
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("device");
    QTest::newRow("2, 1") << 2 << 1 << "DFE"
                          << "Interface_FPGA";
    QTest::newRow("2, 2") << 2 << 2 << "DFE"
                          << "Processing_FPGA_1";
    QTest::newRow("2, 4") << 2 << 4 << "DFE"
                          << "Clock_Master_Device";
    QTest::newRow("2, 8: DFE has no fourth device") << 2 << 8 << "DFE"
                                                    << "";
    QTest::newRow("2, 0: the device is left alone") << 2 << 0 << "DFE"
                                                    << "Interface_FPGA";
    QTest::newRow("2, 3: the device is left alone") << 2 << 3 << "DFE"
                                                    << "Interface_FPGA";
    QTest::newRow("1, 1") << 1 << 1 << "DFE2"
                          << "Processing_FPGA";
    QTest::newRow("1, 2: DFE2 has no second device") << 1 << 2 << "DFE2"
                                                     << "";
    QTest::newRow("1, 4: DFE2 has no third device") << 1 << 4 << "DFE2"
                                                    << "";
    QTest::newRow("1, 8: not for this module") << 1 << 8 << "DFE2"
                                               << "Processing_FPGA";
    QTest::newRow("0, 4: neither changes") << 0 << 4 << "GPM"
                                           << "Processing_FPGA_2";
    QTest::newRow("3, 1: neither changes") << 3 << 1 << "GPM"
                                           << "Processing_FPGA_2";
}

void GeneratorLoadTest::selectsTheTarget()
{
    QFETCH(int, moduleCode);
    QFETCH(int, deviceCode);
    driver->window()->setModule("GPM");
    driver->window()->setDevice("Processing_FPGA_2");
    FcfHeader header = sampleHeader();
    header.moduleCode = moduleCode;
    header.deviceCode = deviceCode;
    driver->window()->setTxtFile(driver->writeHeader("top.txt", header));
    QTEST(driver->window()->getModule(), "module");
    QTEST(driver->window()->getDevice(), "device");
}

void GeneratorLoadTest::doesNotTakeTheFilesTextsForMarkup()
{
    FcfHeader header = sampleHeader();
    const QString text = QString::fromUtf8("<b>雷达</b> &amp; \"x\"");
    header.description = text;
    header.author = "<i>R</i>";
    header.functions[0].name = text;
    header.functions[0].description = text;
    driver->window()->setTxtFile(driver->writeHeader("top.txt", header));
    QCOMPARE(driver->text("DescriptionMemo"), text);
    QCOMPARE(driver->text("AuthoEditBox"), QString("<i>R</i>"));
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor(), QStringList({text, "author", text, " 42"}));
}

void GeneratorLoadTest::pointsBackToTheBinaryOnlyWhereAPathHasTxt()
{
    for (const auto& [path, shown] :
         {std::pair("/a/top.txt", "/a/top.bin"), std::pair("/a/top.TXT", "/a/top.TXT"),
          std::pair("/a/top.fcf", "/a/top.fcf"), std::pair("/a.txt/b.txt", "/a.bin/b.bin"),
          std::pair("/a/top.txt.txt", "/a/top.bin.bin"), std::pair("", "")}) {
        driver->window()->displayConfigFileInfo(path);
        QCOMPARE(driver->text("txtInputFile"), QString(shown));
    }
}

void GeneratorLoadTest::doesNotTakeTheSizesReadForTheNextHeader()
{
    const QString binary = driver->binary("top.bin", 5000);
    driver->window()->setBinFile(binary);
    driver->window()->setTxtFile(driver->writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->text("BinFileSize"), QString("6 bytes"));
    driver->click("GenerateButton");
    const PlainFcf image = PlainFcf::fromFile(driver->path("top.fcf").toStdString());
    const std::vector<int> sizes(image.numbers.begin(), image.numbers.begin() + 6);
    QVERIFY((sizes == std::vector<int>{4, 0, 7112, 3, 0, 5000}));
}

void GeneratorLoadTest::saysWhetherTheWholeTextWasRead()
{
    const QString companion = driver->writeHeader("top.txt", sampleHeader());
    QVERIFY(driver->window()->readConfigFile(companion));
    driver->window()->addNew();
    driver->dialogs().click(QMessageBox::Ok);
    QVERIFY(!driver->window()->readConfigFile(driver->binary("other.txt", 3000)));
    QVERIFY(!driver->window()->readConfigFile(driver->path("missing.txt")));
}

void GeneratorLoadTest::namesThePathInTheFormAndNotTheOneRead()
{
    driver->type("txtInputFile", "shown.txt");
    driver->window()->readConfigFile(driver->writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->text("StatusBar"), loaded("shown.txt"));
    driver->window()->readConfigFile(driver->path("missing.txt"));
    QCOMPARE(driver->text("StatusBar"),
             QString("<font color='red'>Loading shown.txt failed.</font>"));
    driver->window()->readConfigFile(
        driver->write("cut.txt", FcfWriter().compose(sampleHeader()).left(200)));
    QCOMPARE(driver->text("StatusBar"),
             QString("<font color='red'>Loading shown.txt failed.</font>"));
}

void GeneratorLoadTest::pointsAtTheBinaryAfterAFailedLoadByMenuToo()
{
    driver->dialogs().choose(driver->binary("other.txt", 3000));
    driver->dialogs().click(QMessageBox::Ok);
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->text("txtInputFile"), driver->path("other.bin"));
}

void GeneratorLoadTest::leavesModifyTicked()
{
    const QString companion = driver->writeHeader("top.txt", sampleHeader());
    driver->dialogs().choose(companion);
    driver->chooseFromFileMenu("Load");
    driver->click("ModifyFunctionCheckBox");
    driver->dialogs().choose(companion);
    driver->chooseFromFileMenu("Load");
    QVERIFY(driver->find<QCheckBox>("ModifyFunctionCheckBox")->isChecked());
    QVERIFY(!driver->find<QWidget>("EditFunctionName")->isEnabled());
}

QTEST_MAIN(GeneratorLoadTest)
#include "GeneratorLoadTest.moc"
