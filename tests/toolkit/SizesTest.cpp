#include "support/ModalAnswer.h"
#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <QFile>
#include <QtTest>

class SizesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void measuresTheChosenBinary_data();
    void measuresTheChosenBinary();
    void keepsItsPathWhenTheDialogIsCancelled();
};

void SizesTest::measuresTheChosenBinary_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("blocks");
    QTest::newRow("nothing") << 0 << 0 << 0;
    QTest::newRow("one page") << 2112 << 1 << 0;
    QTest::newRow("one byte more") << 2113 << 2 << 0;
    QTest::newRow("one block") << 135168 << 64 << 0;
    QTest::newRow("one block and one byte") << 135169 << 1 << 1;
    QTest::newRow("two blocks") << 270336 << 0 << 2;
}

void SizesTest::measuresTheChosenBinary()
{
    QFETCH(int, bytes);
    QFETCH(int, pages);
    QFETCH(int, blocks);
    const WorkFolder folder;
    const QString path = folder.write(QLatin1String("top.bin"), QByteArray(bytes, 'x'));
    QWidget* const window = Host::instance()->chooseGenerator();
    ModalAnswer answers;
    answers.choose(path);
    press(window, "btnLoad");
    QVERIFY(answers.allGiven());
    QCOMPARE(answers.texts(), QStringList(QLatin1String("Select Bin File")));
    QCOMPARE(textOf(window, "txtInputFile"), path);
    QCOMPARE(textOf(window, "StatusBar"), QString::fromLatin1("Loaded %1 successfully.").arg(path));
    QCOMPARE(textOf(window, "BinFileSize"), QString::fromLatin1("%1  Bytes").arg(bytes));
    QCOMPARE(textOf(window, "BinFilePages"), QString::fromLatin1("%1 Pages").arg(pages));
    QCOMPARE(textOf(window, "BinFileBlocks"), QString::fromLatin1("%1 blocks").arg(blocks));
}

void SizesTest::keepsItsPathWhenTheDialogIsCancelled()
{
    QWidget* const window = Host::instance()->chooseGenerator();
    enter(window, "txtInputFile", QLatin1String("/some/top.bin"));
    ModalAnswer answers;
    answers.cancel();
    press(window, "btnLoad");
    QVERIFY(answers.allGiven());
    QCOMPARE(textOf(window, "txtInputFile"), QString::fromLatin1("/some/top.bin"));
    QCOMPARE(textOf(window, "StatusBar"), QString::fromLatin1("Failed to load *.bin file"));
    clearForm(window);
}

QObject* newSizesTest() { return new SizesTest; }

#include "SizesTest.moc"
