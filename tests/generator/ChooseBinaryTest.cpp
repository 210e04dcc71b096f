#include "generator/GeneratorTest.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QtTest>

class ChooseBinaryTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void choosesABinary();
    void startsTheBinaryDialogAtTheCurrentPath();
    void keepsThePathWhenNoBinaryIsChosen();
    void measuresABinary_data();
    void measuresABinary();
    void takesABinaryThatDoesNotExistForAnEmptyOne();
    void showsAPathThatLooksLikeMarkupAsItIs();
};

void ChooseBinaryTest::choosesABinary()
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

void ChooseBinaryTest::startsTheBinaryDialogAtTheCurrentPath()
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

void ChooseBinaryTest::keepsThePathWhenNoBinaryIsChosen()
{
    driver->type("txtInputFile", "some.bin");
    driver->dialogs().cancel();
    driver->click("btnLoad");
    QCOMPARE(driver->text("txtInputFile"), QString("some.bin"));
    QCOMPARE(driver->text("StatusBar"), QString("Failed to load *.bin file"));
    QCOMPARE(driver->text("BinFileSize"), QString("size"));
}

void ChooseBinaryTest::measuresABinary_data()
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

void ChooseBinaryTest::measuresABinary()
{
    QFETCH(int, bytes);
    driver->window()->setBinFile(driver->binary("top.bin", bytes));
    QCOMPARE(driver->text("BinFileSize"), QString("%1  Bytes").arg(bytes));
    QTEST(driver->text("BinFilePages"), "pages");
    QTEST(driver->text("BinFileBlocks"), "blocks");
}

void ChooseBinaryTest::takesABinaryThatDoesNotExistForAnEmptyOne()
{
    driver->window()->setBinFile(driver->path("missing.bin"));
    QCOMPARE(driver->text("txtInputFile"), driver->path("missing.bin"));
    QCOMPARE(driver->text("BinFileSize"), QString("0  Bytes"));
    QCOMPARE(driver->text("BinFilePages"), QString("0 Pages"));
    QCOMPARE(driver->text("BinFileBlocks"), QString("0 blocks"));
}

void ChooseBinaryTest::showsAPathThatLooksLikeMarkupAsItIs()
{
    const QString binary = driver->binary("<b>top<b>.bin", 10);
    driver->dialogs().choose(binary);
    driver->click("btnLoad");
    auto* const status = driver->find<QLabel>("StatusBar");
    QCOMPARE(status->text(), "Loaded " + binary + " successfully.");
    QCOMPARE(status->textFormat(), Qt::PlainText);

    // Results of other actions are coloured, and the next plain one is plain again.
    driver->window()->readConfigFile(driver->path("missing.txt"));
    QCOMPARE(status->textFormat(), Qt::RichText);
    driver->dialogs().cancel();
    driver->click("btnLoad");
    QCOMPARE(status->textFormat(), Qt::PlainText);
}

QTEST_MAIN(ChooseBinaryTest)
#include "ChooseBinaryTest.moc"
