#include "generator/GeneratorTest.h"
#include "support/SampleHeaders.h"

#include "fcf/FcfWriter.h"
#include "generator/FunctionEntries.h"

#include <QCheckBox>
#include <QFile>
#include <QPushButton>
#include <QtTest>

namespace {

const char* const NotCompatible = "please select a correct text file,the selected file is not "
                                  "compartable with this programme ";

QString loadingFailed(const QString& path)
{
    return "<font color='red'>Loading " + path + " failed.</font>";
}

} // namespace

class LoadFailureTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void endsInTheFailureTextWhenNoCompanionIsChosen();
    void keepsNoFunctionInMemoryAfterAFailedLoad();
    void locksTheEditorForAFileThatCannotBeOpened();
    void selectsNoSlotForNumbersThatAreNone_data();
    void selectsNoSlotForNumbersThatAreNone();
    void keepsTheNumbersOfAFileThatIsNotCompatible();
    void keepsWhatWasReadWhenTheTextEndsEarly_data();
    void keepsWhatWasReadWhenTheTextEndsEarly();
    void saysNoMoreThanThatAFileCutBeforeItsFirstLineIsNotCompatible_data();
    void saysNoMoreThanThatAFileCutBeforeItsFirstLineIsNotCompatible();
    void saysOnceThatADescriptionOfThousandsOfLinesIsTooLong();
    void countsWhatTheFormTakesOfADescriptionThatIsTooLong();
    void readsLessThan64KibOfALargeImage();
};

void LoadFailureTest::endsInTheFailureTextWhenNoCompanionIsChosen()
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

void LoadFailureTest::keepsNoFunctionInMemoryAfterAFailedLoad()
{
    driver->upload("old", "o", "o", "o");
    driver->dialogs().cancel();
    driver->chooseFromFileMenu("Load");
    QCOMPARE(FunctionEntries::of(driver->window()), QVector<QString>());
    driver->window()->displayFunctionInfo(0);
    QCOMPARE(driver->editor(), QStringList({"", "", "", ""}));
}

void LoadFailureTest::locksTheEditorForAFileThatCannotBeOpened()
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

void LoadFailureTest::selectsNoSlotForNumbersThatAreNone_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("0") << 0;
    QTest::newRow("11") << 11;
    QTest::newRow("-1") << -1;
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min();
    QTest::newRow("the largest number") << std::numeric_limits<int>::max();
}

void LoadFailureTest::selectsNoSlotForNumbersThatAreNone()
{
    QFETCH(int, number);
    FcfHeader header = sampleHeader();
    header.configNumber = number;
    driver->window()->setTxtFile(driver->writeHeader("top.txt", header));
    QCOMPARE(driver->find<QComboBox>("ConfigComboBox")->currentIndex(), -1);
    QVERIFY(driver->text("StatusBar").contains("successfully"));
}

void LoadFailureTest::keepsTheNumbersOfAFileThatIsNotCompatible()
{
    driver->type("AuthoEditBox", "R. Vos");
    driver->upload("old", "o", "o", "o");
    const QByteArray numbers = FcfWriter().compose(sampleHeader()).left(65);
    const QString other = driver->write("other.txt", numbers + "Something else\nand more\n----\n");
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

void LoadFailureTest::keepsWhatWasReadWhenTheTextEndsEarly_data()
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

void LoadFailureTest::keepsWhatWasReadWhenTheTextEndsEarly()
{
    QFETCH(QByteArray, endsBefore);
    const QByteArray whole = FcfWriter().compose(sampleHeader());
    const int end = whole.indexOf(endsBefore);
    QVERIFY(end > 0);
    const QString cut = driver->write("cut.txt", whole.left(end));
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

void LoadFailureTest::saysNoMoreThanThatAFileCutBeforeItsFirstLineIsNotCompatible_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("size");
    QTest::newRow("an empty file") << 0 << "0 bytes";
    QTest::newRow("inside the numbers") << 23 << "0 bytes";
    QTest::newRow("inside the reserved words") << 50 << "6 bytes";
    QTest::newRow("before the first text line") << 65 << "6 bytes";
    QTest::newRow("inside its keyword") << 72 << "6 bytes";
}

void LoadFailureTest::saysNoMoreThanThatAFileCutBeforeItsFirstLineIsNotCompatible()
{
    QFETCH(int, bytes);
    const QByteArray whole = FcfWriter().compose(sampleHeader());
    const QString cut = driver->write("cut.txt", whole.left(bytes));
    driver->dialogs().click(QMessageBox::Ok);
    QVERIFY(!driver->window()->readConfigFile(cut));
    QCOMPARE(driver->dialogs().texts(), QStringList(NotCompatible));
    QCOMPARE(driver->text("StatusBar"), QString());
    QTEST(driver->text("BinFileSize"), "size");
}

void LoadFailureTest::saysOnceThatADescriptionOfThousandsOfLinesIsTooLong()
{
    FcfHeader header = sampleHeader();
    header.description = "first" + QString("\nx").repeated(12000);
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setTxtFile(driver->writeHeader("top.txt", header));
    QCOMPARE(driver->dialogs().texts().size(), 1);
    QVERIFY(driver->text("StatusBar").contains("successfully"));
    QCOMPARE(driver->text("DescriptionMemo"), header.description.left(1000));
    QCOMPARE(driver->functionNames().size(), 2);
}

void LoadFailureTest::countsWhatTheFormTakesOfADescriptionThatIsTooLong()
{
    // The form has no room for empty lines before its first text.
    const QByteArray whole = FcfWriter().compose(sampleHeader());
    const int start = whole.indexOf("one\ntwo\nthree\n");
    QVERIFY(start > 0);
    const QByteArray rest = whole.mid(start + 13);
    const QByteArray text = QByteArray(300, '\n') + QByteArray(900, 'a') + QByteArray(200, 'b');
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setTxtFile(driver->write("top.txt", whole.left(start) + text + rest));
    QCOMPARE(driver->dialogs().texts().size(), 1);
    QCOMPARE(driver->text("DescriptionMemo"), QString(900, 'a') + QString(100, 'b'));
}

void LoadFailureTest::readsLessThan64KibOfALargeImage()
{
    const QByteArray text = FcfWriter().compose(sampleHeader());
    const QString image = driver->write("top.fcf", text + FcfWriter().fillerFor(text.size()));
    QVERIFY(QFile::resize(image, 2112 + (1LL << 30)));

    const auto bytesRead = [] {
        QFile io("/proc/self/io");
        io.open(QIODevice::ReadOnly);
        return io.readLine().mid(int(qstrlen("rchar: "))).trimmed().toLongLong();
    };
    const qint64 before = bytesRead();
    driver->window()->setTxtFile(image);
    const qint64 after = bytesRead();
    QVERIFY(before > 0);
    QVERIFY(driver->text("StatusBar").contains("successfully"));
    QVERIFY2(after - before < 65536, qPrintable(QString::number(after - before)));
}

QTEST_MAIN(LoadFailureTest)
#include "LoadFailureTest.moc"
