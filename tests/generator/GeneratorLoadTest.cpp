#include "GeneratorDriver.h"

#include "fcf/FcfWriter.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QPushButton>
#include <QtTest>

namespace {

const char* const NotCompatible = "please select a correct text file,the selected file is not "
                                  "compartable with this programme ";

FcfHeader sampleHeader()
{
    FcfHeader header;
    header.totalPages = 1;
    header.totalBlocks = 2;
    header.totalSize = 3;
    header.binPages = 4;
    header.binBlocks = 5;
    header.binFileSize = 6;
    header.moduleCode = 2;
    header.deviceCode = 4;
    header.configNumber = 7;
    header.versionMajor = 8;
    header.versionMinor = 9;
    header.fileName = "top.fcf";
    header.ciNumber = "CI-0042";
    header.author = "R. Vos";
    header.description = "one\ntwo\nthree";
    FcfFunction function;
    function.name = " padded ";
    function.author = "author";
    function.ciNumber = "42";
    function.description = "first,\nsecond\nthird";
    header.functions << function;
    function.name = "plain";
    header.functions << function;
    return header;
}

QString loaded(const QString& path)
{
    return "<font color='green'>Loaded " + path + " successfully.</font>";
}

QString loadingFailed(const QString& path)
{
    return "<font color='red'>Loading " + path + " failed.</font>";
}

} // namespace

class GeneratorLoadTest : public QObject {
    Q_OBJECT

private slots:
    void init() { driver.reset(new GeneratorDriver); }
    void cleanup();

    void choosesABinary();
    void startsTheBinaryDialogAtTheCurrentPath();
    void keepsThePathWhenNoBinaryIsChosen();
    void measuresABinary_data();
    void measuresABinary();
    void takesABinaryThatDoesNotExistForAnEmptyOne();

    void loadsACompanionIntoTheForm();
    void loadsAnImageLikeItsCompanion();
    void loadsThroughTheFileMenu();
    void endsInTheFailureTextWhenNoCompanionIsChosen();
    void keepsNoFunctionInMemoryAfterAFailedLoad();
    void asksForADocumentInTheCurrentFolder();
    void leavesTheEditorFilledAfterALoadByMenu();
    void addsToTheFunctionsListedAlready();
    void survivesAnEditOfFunctionsListedBeforeALoad();
    void addsToTheDescriptionThatIsThere();
    void locksTheEditorUntilModifyIsTicked();
    void locksTheEditorForAFileThatCannotBeOpened();
    void selectsTheTarget_data();
    void selectsTheTarget();
    void selectsNoSlotForNumbersThatAreNone_data();
    void selectsNoSlotForNumbersThatAreNone();
    void keepsTheNumbersOfAFileThatIsNotCompatible();
    void keepsWhatWasReadWhenTheTextEndsEarly_data();
    void keepsWhatWasReadWhenTheTextEndsEarly();
    void saysBothOfAFileWithoutText();
    void doesNotTakeTheFilesTextsForMarkup();
    void pointsBackToTheBinaryOnlyWhereAPathHasTxt();
    void doesNotTakeTheSizesReadForTheNextHeader();
    void readsLessThan64KibOfALargeImage();

private:
    QString write(const QString& name, const QByteArray& bytes) const;
    QString writeHeader(const QString& name, const FcfHeader& header) const;

    QScopedPointer<GeneratorDriver> driver;
};

void GeneratorLoadTest::cleanup()
{
    QVERIFY2(driver->dialogs().allGiven(), qPrintable(driver->dialogs().unexpected().join('|')));
    driver.reset();
}

QString GeneratorLoadTest::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(driver->path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QString GeneratorLoadTest::writeHeader(const QString& name, const FcfHeader& header) const
{
    const QByteArray text = FcfWriter().compose(header);
    return write(name, text + FcfWriter().fillerFor(text.size()));
}

void GeneratorLoadTest::choosesABinary()
{
    const QString binary = driver->binary("top.bin", 5000);
    driver->dialogs().choose(binary);
    driver->dialogs().inspect([this](QWidget* widget) {
        const auto* const dialog = qobject_cast<QFileDialog*>(widget);
        QCOMPARE(dialog->windowTitle(), QString("Select Bin File"));
        QCOMPARE(dialog->nameFilters(), QStringList("Xilinx Binary Configuration Files (*.bin)"));
        QCOMPARE(dialog->parentWidget(), driver->window());
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
    });
    driver->click("btnLoad");
    QCOMPARE(driver->text("txtInputFile"), binary);
    QCOMPARE(driver->text("StatusBar"), "Loaded " + binary + " successfully.");
    QCOMPARE(driver->text("BinFileSize"), QString("5000  Bytes"));
    QCOMPARE(driver->text("BinFilePages"), QString("3 Pages"));
    QCOMPARE(driver->text("BinFileBlocks"), QString("0 blocks"));
    QCOMPARE(driver->text("finalSize"), QString());
}

void GeneratorLoadTest::startsTheBinaryDialogAtTheCurrentPath()
{
    const QString binary = driver->binary("top.bin", 1);
    driver->type("txtInputFile", binary);
    driver->dialogs().cancel();
    driver->dialogs().inspect([&](QWidget* widget) {
        const auto* const dialog = qobject_cast<QFileDialog*>(widget);
        QCOMPARE(dialog->directory().absolutePath(), QFileInfo(binary).absolutePath());
        QCOMPARE(dialog->selectedFiles(), QStringList(binary));
    });
    driver->click("btnLoad");
}

void GeneratorLoadTest::keepsThePathWhenNoBinaryIsChosen()
{
    driver->type("txtInputFile", "some.bin");
    driver->dialogs().cancel();
    driver->click("btnLoad");
    QCOMPARE(driver->text("txtInputFile"), QString("some.bin"));
    QCOMPARE(driver->text("StatusBar"), QString("Failed to load *.bin file"));
    QCOMPARE(driver->text("BinFileSize"), QString("size"));
}

void GeneratorLoadTest::measuresABinary_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("pages");
    QTest::addColumn<QString>("blocks");
    QTest::newRow("empty") << 0 << "0 Pages"
                           << "0 blocks";
    QTest::newRow("a page") << 2112 << "1 Pages"
                            << "0 blocks";
    QTest::newRow("a page and a byte") << 2113 << "2 Pages"
                                       << "0 blocks";
    QTest::newRow("a block") << 135168 << "64 Pages"
                             << "0 blocks";
    QTest::newRow("a block and a byte") << 135169 << "1 Pages"
                                        << "1 blocks";
    QTest::newRow("two blocks") << 270336 << "0 Pages"
                                << "2 blocks";
}

void GeneratorLoadTest::measuresABinary()
{
    QFETCH(int, bytes);
    driver->window()->setBinFile(driver->binary("top.bin", bytes));
    QCOMPARE(driver->text("BinFileSize"), QString("%1  Bytes").arg(bytes));
    QTEST(driver->text("BinFilePages"), "pages");
    QTEST(driver->text("BinFileBlocks"), "blocks");
}

void GeneratorLoadTest::takesABinaryThatDoesNotExistForAnEmptyOne()
{
    driver->window()->setBinFile(driver->path("missing.bin"));
    QCOMPARE(driver->text("txtInputFile"), driver->path("missing.bin"));
    QCOMPARE(driver->text("BinFileSize"), QString("0  Bytes"));
    QCOMPARE(driver->text("BinFilePages"), QString("0 Pages"));
    QCOMPARE(driver->text("BinFileBlocks"), QString("0 blocks"));
}

void GeneratorLoadTest::loadsACompanionIntoTheForm()
{
    const QString companion = writeHeader("top.txt", sampleHeader());
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
    const QString image =
        write("top.fcf", text + FcfWriter().fillerFor(text.size()) + QByteArray(100000, '\n'));
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
    const QString companion = writeHeader("top.txt", header);
    driver->dialogs().choose(companion);
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->text("StatusBar"), loaded(companion));
    QCOMPARE(driver->text("txtInputFile"), driver->path("top.bin"));
    QCOMPARE(driver->functionNames(), QStringList({" padded ", "plain"}));
    QCOMPARE(driver->text("DescriptionMemo"), QString("one\ntwo\nthree"));
    QCOMPARE(driver->window()->getModule(), QString("GPM"));
}

void GeneratorLoadTest::endsInTheFailureTextWhenNoCompanionIsChosen()
{
    driver->upload("old", "o", "o", "o");
    driver->fillIn(driver->binary("old.bin", 10));
    driver->dialogs().cancel();
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->text("StatusBar"), loadingFailed(""));
    for (const char* name : {"txtInputFile", "AuthoEditBox", "CiNumEditBox", "BinFileSize"})
        QCOMPARE(driver->text(name), QString());
    QCOMPARE(driver->functionNames(), QStringList());
    QVERIFY(!driver->find<QPushButton>("btnRemove")->isEnabled());
    QVERIFY(!driver->find<QCheckBox>("ModifyFunctionCheckBox")->isEnabled());
    QVERIFY(!driver->find<QWidget>("UploadFunctionButton")->isEnabled());
}

void GeneratorLoadTest::keepsNoFunctionInMemoryAfterAFailedLoad()
{
    driver->upload("old", "o", "o", "o");
    driver->dialogs().cancel();
    driver->chooseFromFileMenu("Load");
    driver->chooseFromFileMenu("Clear");
    driver->upload("new", "n", "n", "n");
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor(), QStringList({"new", "n", "n", "n"}));
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
    driver->dialogs().choose(writeHeader("top.txt", sampleHeader()));
    driver->chooseFromFileMenu("Load");
    QCOMPARE(driver->editor(), QStringList({"plain", "author", "first,secondthird", " 42"}));
}

void GeneratorLoadTest::addsToTheFunctionsListedAlready()
{
    driver->upload("old", "o", "o", "o");
    driver->window()->setTxtFile(writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->functionNames(), QStringList({"old", " padded ", "plain"}));
    // The memory begins anew with the file's functions.
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor().first(), QString("padded"));
    driver->window()->displayFunctionInfo(2);
    QCOMPARE(driver->editor().first(), QString());
}

void GeneratorLoadTest::survivesAnEditOfFunctionsListedBeforeALoad()
{
    driver->upload("old", "o", "o", "o");
    driver->window()->setTxtFile(writeHeader("top.txt", sampleHeader()));
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
    driver->window()->setTxtFile(writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->text("DescriptionMemo"), QString("zero\none\ntwo\nthree"));
}

void GeneratorLoadTest::locksTheEditorUntilModifyIsTicked()
{
    driver->window()->setTxtFile(writeHeader("top.txt", sampleHeader()));
    QVERIFY(!driver->find<QWidget>("EditFunctionName")->isEnabled());
    QVERIFY(driver->find<QCheckBox>("ModifyFunctionCheckBox")->isEnabled());
    driver->click("ModifyFunctionCheckBox");
    QVERIFY(driver->find<QWidget>("EditFunctionName")->isEnabled());
    driver->click("ModifyFunctionCheckBox");
    QVERIFY(!driver->find<QWidget>("EditFunctionName")->isEnabled());
}

void GeneratorLoadTest::locksTheEditorForAFileThatCannotBeOpened()
{
    driver->upload("old", "o", "o", "o");
    driver->type("AuthoEditBox", "R. Vos");
    const QString missing = driver->path("missing.txt");
    driver->window()->setTxtFile(missing);
    QCOMPARE(driver->text("StatusBar"), loadingFailed(missing));
    QCOMPARE(driver->text("txtInputFile"), driver->path("missing.bin"));
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->functionNames(), QStringList("old"));
    QVERIFY(!driver->find<QWidget>("EditFunctionName")->isEnabled());
    QVERIFY(!driver->find<QCheckBox>("ModifyFunctionCheckBox")->isEnabled());
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor(), QStringList({"old", "o", "o", "o"}));
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
    driver->window()->setTxtFile(writeHeader("top.txt", header));
    QTEST(driver->window()->getModule(), "module");
    QTEST(driver->window()->getDevice(), "device");
}

void GeneratorLoadTest::selectsNoSlotForNumbersThatAreNone_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("0") << 0;
    QTest::newRow("11") << 11;
    QTest::newRow("-1") << -1;
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min();
    QTest::newRow("the largest number") << std::numeric_limits<int>::max();
}

void GeneratorLoadTest::selectsNoSlotForNumbersThatAreNone()
{
    QFETCH(int, number);
    FcfHeader header = sampleHeader();
    header.configNumber = number;
    driver->window()->setTxtFile(writeHeader("top.txt", header));
    QCOMPARE(driver->find<QComboBox>("ConfigComboBox")->currentIndex(), -1);
    QVERIFY(driver->text("StatusBar").contains("successfully"));
}

void GeneratorLoadTest::keepsTheNumbersOfAFileThatIsNotCompatible()
{
    driver->type("AuthoEditBox", "R. Vos");
    driver->upload("old", "o", "o", "o");
    const QByteArray numbers = FcfWriter().compose(sampleHeader()).left(65);
    const QString other = write("other.txt", numbers + "Something else\nand more\n----\n");
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setTxtFile(other);
    QCOMPARE(driver->dialogs().texts(), QStringList(NotCompatible));
    QCOMPARE(driver->text("StatusBar"), QString());
    QCOMPARE(driver->text("BinFileSize"), QString("6 bytes"));
    QCOMPARE(driver->text("MinorVerEditBox"), QString("9"));
    QCOMPARE(driver->window()->getConfigNum(), 7);
    QCOMPARE(driver->window()->getDevice(), QString("Clock_Master_Device"));
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->text("DescriptionMemo"), QString());
    QCOMPARE(driver->functionNames(), QStringList("old"));
    QVERIFY(driver->find<QCheckBox>("ModifyFunctionCheckBox")->isEnabled());
    QVERIFY(!driver->window()->readConfigFile(driver->path("missing.txt")));
}

void GeneratorLoadTest::keepsWhatWasReadWhenTheTextEndsEarly_data()
{
    QTest::addColumn<QByteArray>("endsBefore");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("before the author") << QByteArray("Author") << "" << QStringList();
    QTest::newRow("inside the description") << QByteArray("three\n") << "one\ntwo" << QStringList();
    QTest::newRow("after the description")
        << QByteArray("---\nF") << "one\ntwo\nthree" << QStringList();
    QTest::newRow("before the first function")
        << QByteArray("Function name:  padded") << "one\ntwo\nthree" << QStringList();
    QTest::newRow("before the second function")
        << QByteArray("Function name: plain") << "one\ntwo\nthree" << QStringList(" padded ");
    QTest::newRow("before the end mark")
        << QByteArray("----") << "one\ntwo\nthree" << QStringList({" padded ", "plain"});
}

void GeneratorLoadTest::keepsWhatWasReadWhenTheTextEndsEarly()
{
    QFETCH(QByteArray, endsBefore);
    const QByteArray whole = FcfWriter().compose(sampleHeader());
    const int end = whole.indexOf(endsBefore);
    QVERIFY(end > 0);
    const QString cut = write("cut.txt", whole.left(end));
    driver->window()->setTxtFile(cut);
    QCOMPARE(driver->text("StatusBar"), loadingFailed(cut));
    QTEST(driver->text("DescriptionMemo"), "description");
    QTEST(driver->functionNames(), "names");
    QCOMPARE(driver->text("CiNumEditBox"), QString("CI-0042"));
    const int last = driver->functionNames().size() - 1;
    if (last >= 0) {
        driver->window()->displayFunctionInfo(last);
        QCOMPARE(driver->editor().at(2), QString("first,secondthird"));
    }
    QVERIFY(!driver->window()->readConfigFile(cut));
}

void GeneratorLoadTest::saysBothOfAFileWithoutText()
{
    const QString empty = write("empty.txt", QByteArray());
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setTxtFile(empty);
    QCOMPARE(driver->dialogs().texts(), QStringList(NotCompatible));
    QCOMPARE(driver->text("StatusBar"), loadingFailed(empty));
    QCOMPARE(driver->text("BinFileSize"), QString("0 bytes"));
}

void GeneratorLoadTest::doesNotTakeTheFilesTextsForMarkup()
{
    FcfHeader header = sampleHeader();
    const QString text = QString::fromUtf8("<b>雷达</b> &amp; \"x\"");
    header.description = text;
    header.author = "<i>R</i>";
    header.functions[0].name = text;
    header.functions[0].description = text;
    driver->window()->setTxtFile(writeHeader("top.txt", header));
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
    driver->window()->setTxtFile(writeHeader("top.txt", sampleHeader()));
    QCOMPARE(driver->text("BinFileSize"), QString("6 bytes"));
    driver->dialogs().clear();
    driver->click("GenerateButton");
    QCOMPARE(driver->text("finalSize"), QString("7112 bytes"));
}

void GeneratorLoadTest::readsLessThan64KibOfALargeImage()
{
    const QByteArray text = FcfWriter().compose(sampleHeader());
    const QString image = write("top.fcf", text + FcfWriter().fillerFor(text.size()));
    QVERIFY(QFile::resize(image, 2112 + (1LL << 30)));

    const auto bytesRead = [] {
        QFile io("/proc/self/io");
        io.open(QIODevice::ReadOnly);
        return io.readLine().mid(qstrlen("rchar: ")).trimmed().toLongLong();
    };
    const qint64 before = bytesRead();
    driver->window()->setTxtFile(image);
    const qint64 after = bytesRead();
    QVERIFY(before > 0);
    QVERIFY(driver->text("StatusBar").contains("successfully"));
    QVERIFY2(after - before < 64 * 1024, qPrintable(QString::number(after - before)));
}

QTEST_MAIN(GeneratorLoadTest)
#include "GeneratorLoadTest.moc"
