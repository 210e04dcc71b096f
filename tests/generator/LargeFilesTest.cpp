#include "generator/GeneratorTest.h"
#include "support/TestProgram.h"

#include "fcf/FcfWriter.h"
#include "support/SampleHeaders.h"

#include <QFile>
#include <QtTest>

/// Files so large that the model of the window has none of them.
class LargeFilesTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void readsLessThan64KibOfALargeImage();
    void writesSizesCutOffTo32Bits_data();
    void writesSizesCutOffTo32Bits();
};

void LargeFilesTest::readsLessThan64KibOfALargeImage()
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

void LargeFilesTest::writesSizesCutOffTo32Bits_data()
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

void LargeFilesTest::writesSizesCutOffTo32Bits()
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

ZORV_WINDOW_TEST(LargeFilesTest)
#include "LargeFilesTest.moc"
