#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QtTest>

/// What extract gives, and when it gives nothing.
class ExtractTest : public QObject {
    Q_OBJECT

private slots:
    void extractsThePayload();
    void extractsNothingFromABadImage();
    void extractsNothingThatASidecarContradicts_data();
    void extractsNothingThatASidecarContradicts();
    void guardsTheOutputOfAnExtraction();
    void extractsOverNoSidecarThatItRead_data();
    void extractsOverNoSidecarThatItRead();
};

void ExtractTest::extractsThePayload()
{
    ToolFixture tool;
    tool.makeImage();
    const Run run = tool.run(
        {"extract", tool.argument("top.fcf"), "--output", tool.argument("out.bin"), "--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.json()["payloadBytes"].toInt(), 4000);
    QCOMPARE(run.json()["payload"].toString(), tool.path("out.bin"));
    QCOMPARE(tool.read("out.bin"), tool.read("top.bin"));
    QCOMPARE(tool.names(), QStringList({"out.bin", "top.bin", "top.fcf", "top.txt"}));
}

void ExtractTest::extractsNothingFromABadImage()
{
    ToolFixture tool;
    ForgedImage image;
    image.payload.chop(1);
    tool.write("top.fcf", image.bytes());
    tool.write("out.bin", "old");
    const Run run = tool.run(
        {"extract", tool.argument("top.fcf"), "--output", tool.argument("out.bin"), "--force"});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains("top.fcf: payload at offset 6112: 1 byte is missing at the end; "
                              "expected 6113 bytes, found 6112 bytes"),
             run.err);
    QCOMPARE(tool.read("out.bin"), QByteArray("old"));
}

void ExtractTest::extractsNothingThatASidecarContradicts_data()
{
    QTest::addColumn<QString>("sidecar");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("reason");
    QTest::addColumn<QString>("option");
    QTest::newRow("a digest") << "top.fcf.sha256" << QByteArray(64, '0') + "  top.fcf\n"
                              << QByteArray("digest at offset 0: is not that of ") << "--no-digest";
    QTest::newRow("a companion") << "top.txt" << ForgedImage().page()
                                 << QByteArray("is not the companion ") << "--no-companion";
}

void ExtractTest::extractsNothingThatASidecarContradicts()
{
    QFETCH(QString, sidecar);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, reason);
    QFETCH(QString, option);
    ToolFixture tool;
    tool.makeImage();
    tool.write(sidecar, bytes);
    const Arguments extract{"extract", tool.argument("top.fcf"), "--output",
                            tool.argument("out.bin")};
    const Run run = tool.run(extract);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains(reason), run.err);
    QVERIFY(!tool.exists("out.bin"));
    QCOMPARE(tool.run(extract + Arguments{option.toStdString()}).code, 0);
    QCOMPARE(tool.read("out.bin"), tool.read("top.bin"));
}

void ExtractTest::guardsTheOutputOfAnExtraction()
{
    ToolFixture tool;
    tool.makeImage();
    const Arguments extract{"extract", tool.argument("top.fcf"), "--output",
                            tool.argument("out.bin")};
    tool.write("out.bin", "old");
    QCOMPARE(tool.run(extract).code, 4);
    QCOMPARE(tool.read("out.bin"), QByteArray("old"));
    QCOMPARE(tool.run(extract + Arguments{"--force"}).code, 0);
    QCOMPARE(tool.read("out.bin"), tool.read("top.bin"));
    const Run refused = tool.run({"extract", tool.argument("top.fcf"), "--output",
                                  std::string(UnwritableFolder) + "/out.bin"});
    QCOMPARE(refused.code, 3);
    QVERIFY2(refused.err.contains("out.bin: --output: cannot be written: "), refused.err);
}

void ExtractTest::extractsOverNoSidecarThatItRead_data()
{
    QTest::addColumn<QString>("output");
    QTest::newRow("the companion") << "top.txt";
    QTest::newRow("the digest") << "top.fcf.sha256";
}

void ExtractTest::extractsOverNoSidecarThatItRead()
{
    QFETCH(QString, output);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray before = tool.read(output);

    const Run run = tool.run(
        {"extract", tool.argument("top.fcf"), "--output", tool.argument(output), "--force"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("--output: is the input itself"), run.err);
    QCOMPARE(tool.read(output), before);
}

ZORV_TEST(ExtractTest)
#include "ExtractTest.moc"
