#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "support/TestProgram.h"

#include <QTemporaryFile>
#include <QtTest>

class PelkFcfGeneratorFileInfoTest : public QObject {
    Q_OBJECT

private slots:
    void countsPagesAndBlocks_data();
    void countsPagesAndBlocks();
    void measuresAFile();
    void takesAMissingFileForAnEmptyOne();
};

void PelkFcfGeneratorFileInfoTest::countsPagesAndBlocks_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("blocks");

    QTest::newRow("nothing") << 0 << 0 << 0;
    QTest::newRow("one byte takes a page") << 1 << 1 << 0;
    QTest::newRow("a full page") << 2112 << 1 << 0;
    QTest::newRow("a page and a byte") << 2113 << 2 << 0;
    QTest::newRow("one page less than a block") << 133056 << 63 << 0;
    QTest::newRow("a byte into the last page of a block") << 133057 << 64 << 0;
    QTest::newRow("a full block is given in pages") << 135168 << 64 << 0;
    QTest::newRow("a block and a byte") << 135169 << 1 << 1;
    QTest::newRow("two full blocks") << 270336 << 0 << 2;
    QTest::newRow("two blocks and a byte") << 270337 << 1 << 2;
    QTest::newRow("the largest size of 32 bits") << 2147483647 << 33 << 15887;
}

void PelkFcfGeneratorFileInfoTest::countsPagesAndBlocks()
{
    QFETCH(int, bytes);
    const PelkFcfGeneratorFileInfo info;
    QTEST(info.pages(bytes), "pages");
    QTEST(info.blocks(bytes), "blocks");
}

void PelkFcfGeneratorFileInfoTest::measuresAFile()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    QCOMPARE(file.write(QByteArray(4321, 'x')), qint64(4321));
    QVERIFY(file.flush());
    QCOMPARE(PelkFcfGeneratorFileInfo().getFileSize(file.fileName()), qint64(4321));
}

void PelkFcfGeneratorFileInfoTest::takesAMissingFileForAnEmptyOne()
{
    QCOMPARE(PelkFcfGeneratorFileInfo().getFileSize("/no/such/file.bin"), qint64(0));
}

ZORV_TEST(PelkFcfGeneratorFileInfoTest)
#include "PelkFcfGeneratorFileInfoTest.moc"
