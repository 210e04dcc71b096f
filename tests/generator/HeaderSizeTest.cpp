#include "generator/GeneratorTest.h"

#include "support/PlainFcf.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTextCodec>
#include <QtTest>

namespace {

const char* const TooLarge = "The file Size is too large please change some fields";

} // namespace

/// How large a header may be, and which sizes are in it.
class HeaderSizeTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void endsTheHeaderPageAt2112OrJustBehind_data();
    void endsTheHeaderPageAt2112OrJustBehind();
    void refusesAHeaderThatDoesNotFit();
    void deletesAnImageOverwrittenByAHeaderThatDoesNotFit();
    void fillsEachHeaderPageByItsOwnLength();
    void deletesATooLargeHeaderOnlyAfterSayingSo();
    void writesSizesCutOffTo32Bits_data();
    void writesSizesCutOffTo32Bits();
};

void HeaderSizeTest::endsTheHeaderPageAt2112OrJustBehind_data()
{
    QTest::addColumn<int>("textEnd");
    QTest::addColumn<int>("pageEnd");
    QTest::newRow("text fills the page") << 2112 << 2112;
    QTest::newRow("one byte is missing") << 2111 << 2117;
    QTest::newRow("two bytes are missing") << 2110 << 2116;
    QTest::newRow("a unit is missing") << 2106 << 2112;
}

void HeaderSizeTest::endsTheHeaderPageAt2112OrJustBehind()
{
    QFETCH(int, textEnd);
    QFETCH(int, pageEnd);
    const QString binary = driver->binary("top.bin", 5000);
    driver->fillIn(binary);
    driver->find<QLineEdit>("CiNumEditBox")->clear();
    // All of the text but the CI number.
    const int others = 65 + int(qstrlen("Filename: top.fcf\nCI No: \nAuthor: R. Vos\n"
                                        "Date: 21 Nov 2026\nTime: 09:05:07\nDescription: \n"
                                        "---\n----\n"));
    driver->window()->setCINumber(QString(textEnd - others, 'x'));
    const PlainFcf image = generate();
    QCOMPARE(driver->text("StatusBar"), QString(Green));
    QCOMPARE(int(image.headerBytes), pageEnd);
    QCOMPARE(int(image.fillerUnits), (pageEnd - textEnd + 5) / 6);
    QCOMPARE(image.numbers[2], 5000 + 2112);
    QVERIFY(image.payload == driver->content(binary).toStdString());
    QCOMPARE(driver->content(driver->path("top.txt")).size(), pageEnd);
}

void HeaderSizeTest::refusesAHeaderThatDoesNotFit()
{
    const QString binary = driver->binary("top.bin", 5000);
    driver->fillIn(binary);
    const int others = 65 + int(qstrlen("Filename: top.fcf\nCI No: \nAuthor: R. Vos\n"
                                        "Date: 21 Nov 2026\nTime: 09:05:07\nDescription: \n"
                                        "---\n----\n"));
    driver->window()->setCINumber(QString(2113 - others, 'x'));
    QSignalSpy created(driver->window(), &PelkFcfGenerator::newFilesCreated);
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("GenerateButton");
    QCOMPARE(driver->dialogs().texts().mid(1), QStringList(TooLarge));
    QVERIFY(!driver->exists(driver->path("top.fcf")));
    QVERIFY(!driver->exists(driver->path("top.txt")));
    QCOMPARE(driver->content(binary).size(), 5000);
    QCOMPARE(driver->text("StatusBar"), QString(Red));
    QCOMPARE(driver->text("finalSize"), QString("7112 bytes"));
    QVERIFY(!driver->window()->isVisible());
    QCOMPARE(created.count(), 0);
}

void HeaderSizeTest::deletesAnImageOverwrittenByAHeaderThatDoesNotFit()
{
    driver->fillIn(driver->binary("top.bin", 10));
    generate();
    driver->window()->setCINumber(QString(3000, 'x'));
    driver->dialogs().click(QMessageBox::Yes);
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("GenerateButton");
    QCOMPARE(driver->dialogs().texts().last(), QString(TooLarge));
    QVERIFY(!driver->exists(driver->path("top.fcf")));
    QVERIFY(!driver->exists(driver->path("top.txt")));
}

void HeaderSizeTest::fillsEachHeaderPageByItsOwnLength()
{
    driver->fillIn(driver->binary("top.bin", 10));
    QDateTime now(QDate(2026, 11, 9), QTime(23, 59, 59));
    driver->window()->setClock([&] {
        const QDateTime reading = now;
        now = now.addSecs(1);
        return reading;
    });
    // The companion's text, whose date has a digit more, ends at 2112 exactly.
    const int others = 65 + int(qstrlen("Filename: top.fcf\nCI No: \nAuthor: R. Vos\n"
                                        "Date: 10 Nov 2026\nTime: 00:00:00\nDescription: \n"
                                        "---\n----\n"));
    driver->window()->setCINumber(QString(2112 - others, 'x'));
    const PlainFcf image = generate();
    const PlainFcf companion = PlainFcf::fromFile(driver->path("top.txt").toStdString());
    QCOMPARE(driver->text("StatusBar"), QString(Green));
    QCOMPARE(image.valueOf("Date: "), std::string("9 Nov 2026"));
    QCOMPARE(companion.valueOf("Date: "), std::string("10 Nov 2026"));
    QCOMPARE(image.headerBytes, std::size_t(2117));
    QCOMPARE(companion.headerBytes, std::size_t(2112));
    QCOMPARE(image.payload.size(), std::size_t(10));
}

void HeaderSizeTest::deletesATooLargeHeaderOnlyAfterSayingSo()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setCINumber(QString(3000, 'x'));
    driver->dialogs().click(QMessageBox::Ok);
    driver->dialogs().inspect([this](QWidget*) {
        QVERIFY(driver->exists(driver->path("top.fcf")));
        QVERIFY(driver->exists(driver->path("top.txt")));
        QVERIFY(driver->text("StatusBar") != Red);
    });
    driver->click("GenerateButton");
    QVERIFY(!driver->exists(driver->path("top.fcf")));
    QVERIFY(!driver->exists(driver->path("top.txt")));
    QCOMPARE(driver->text("StatusBar"), QString(Red));
}

void HeaderSizeTest::writesSizesCutOffTo32Bits_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QVector<int>>("sizes");
    const qint64 gib = 1LL << 30;
    QTest::newRow("2 GiB") << 2 * gib
                           << QVector<int>{-1016799, 0, -2147481536, -1016800, 0, -2147483647 - 1};
    QTest::newRow("3 GiB") << 3 * gib
                           << QVector<int>{-508399, 0, -1073739712, -508400, 0, -1073741824};
    QTest::newRow("4 GiB and 5 bytes") << 4 * gib + 5 << QVector<int>{2, 0, 2117, 1, 0, 5};
}

void HeaderSizeTest::writesSizesCutOffTo32Bits()
{
    QFETCH(qint64, bytes);
    QFETCH(QVector<int>, sizes);
    const QString large = driver->binary("large.bin", 0);
    QVERIFY(QFile::resize(large, bytes));
    driver->window()->setBinFile(large);
    QCOMPARE(driver->text("BinFileSize"), QString("%1  Bytes").arg(bytes));
    QCOMPARE(driver->text("BinFilePages"), QString("%1 Pages").arg(sizes[3]));
    QCOMPARE(driver->text("BinFileBlocks"), QString("%1 blocks").arg(sizes[4]));
    // They stay those of the binary that was selected, for an image of a small one.
    driver->type("txtInputFile", driver->binary("top.bin", 10));
    driver->type("AuthoEditBox", "a");
    driver->type("CiNumEditBox", "1");
    const PlainFcf image = generate();
    QCOMPARE(QVector<int>(image.numbers.begin(), image.numbers.begin() + 6), sizes);
    QCOMPARE(driver->text("finalSize"), QString("%1 bytes").arg(sizes[2]));
}

QTEST_MAIN(HeaderSizeTest)
#include "HeaderSizeTest.moc"
