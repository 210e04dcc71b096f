#include "fcf/FcfLineSource.h"
#include "support/TestProgram.h"

#include <QBuffer>
#include <QTextCodec>
#include <QtTest>

/// What a source says about the line that was taken last.
class FcfLineSourceTest : public QObject {
    Q_OBJECT

private slots:
    void saysOfEachLineWhetherItIsDecodable();
    void countsItsOffsetsBeyondAPage();
};

void FcfLineSourceTest::saysOfEachLineWhetherItIsDecodable()
{
    QByteArray bytes("a\xFFz\n\nplain\ncut\xC3\n");
    QBuffer device(&bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    FcfLineSource source(&device, QTextCodec::codecForName("UTF-8"), 1000, FcfLineSource::LineFeed);
    for (const bool isDecodable : {false, true, true, false}) {
        source.takeLine();
        QVERIFY(source.lineIsEnded());
        QCOMPARE(source.lineIsDecodable(), isDecodable);
    }
    QCOMPARE(source.position(), bytes.size());
}

void FcfLineSourceTest::countsItsOffsetsBeyondAPage()
{
    QByteArray bytes = QByteArray(3000, 'x') + "\nsecond\n" + QByteArray(4000, 'y') + "\nlast";
    QBuffer device(&bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    FcfLineSource source(&device, nullptr, 10000, FcfLineSource::LineFeed);
    for (const int offset : {0, 3001, 3008, 7009}) {
        QVERIFY(!source.takeLine().isEmpty());
        QCOMPARE(source.lineOffset(), offset);
    }
    QVERIFY(!source.lineIsEnded());
    QCOMPARE(source.position(), bytes.size());
}

ZORV_TEST(FcfLineSourceTest)
#include "FcfLineSourceTest.moc"
