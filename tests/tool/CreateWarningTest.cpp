#include "CreatingTest.h"

#include <QFile>
#include <QTextCodec>
#include <QtTest>

/// What create has doubts about, and makes all the same.
class CreateWarningTest : public CreatingTest {
    Q_OBJECT

private slots:
    void warnsOfOutputsThatWillNotBelong();
    void warnsOfABinaryThatIsNotRight_data();
    void warnsOfABinaryThatIsNotRight();
    void takesWarningsForErrorsWhenStrict();
    void warnsOfTextsThatTheWindowWouldLose();
    void warnsOfADescriptionThatTheWindowWouldCut();
    void warnsOfALocaleThatTheTargetDoesNotShare();
    void givesResultsAndWarningsWhenQuiet();
};

void CreateWarningTest::warnsOfOutputsThatWillNotBelong()
{
    ToolFixture tool;
    create(&tool, {"--digest"});
    const Run run = create(&tool, {"--force", "--no-companion"});
    QCOMPARE(run.code, 0);
    const QByteArray warning = "exists, is not written, and so will not belong to the new image";
    QCOMPARE(run.err.count(warning), 2);
    QCOMPARE(create(&tool, {"--force", "--no-companion", "--strict"}).code, 2);
}

void CreateWarningTest::warnsOfABinaryThatIsNotRight_data()
{
    QTest::addColumn<QByteArray>("binary");
    QTest::addColumn<QByteArray>("warning");
    const QByteArray dummies(16, '\xff');
    const QByteArray right = QByteArray::fromHex("aa995566");
    QTest::newRow("the sync word") << dummies + right << QByteArray();
    QTest::newRow("the sync word off its alignment") << "x" + right << QByteArray();
    QTest::newRow("the sync word just within reach")
        << QByteArray(4092, 'x') + right << QByteArray();
    QTest::newRow("the sync word too late")
        << QByteArray(4093, 'x') + right << QByteArray("has no sync word 0xAA995566");
    QTest::newRow("swapped bytes")
        << dummies + QByteArray::fromHex("665599aa") << QByteArray("the binary is byte-swapped");
    QTest::newRow("swapped bits") << dummies + QByteArray::fromHex("5599aa66")
                                  << QByteArray("the binary is bit-swapped");
    QTest::newRow("the right one first") << right + QByteArray::fromHex("665599aa") << QByteArray();
    QTest::newRow("a container") << QByteArray::fromHex("00090ff00ff00ff00ff0000001") + "a" + right
                                 << QByteArray(
                                        "the binary is a .bit container: strip its header first");
    QTest::newRow("something else")
        << QByteArray("#!/bin/sh\n") << QByteArray("has no sync word 0xAA995566");
}

void CreateWarningTest::warnsOfABinaryThatIsNotRight()
{
    QFETCH(QByteArray, binary);
    QFETCH(QByteArray, warning);
    ToolFixture tool;
    tool.write("top.bin", binary);
    const Arguments arguments =
        Arguments{"create", tool.argument("top.bin")} + ToolFixture::described();
    const Run run = tool.run(arguments);
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err.contains("warning: "), !warning.isEmpty());
    QVERIFY2(run.err.contains(warning), run.err);

    const Run strict = tool.run(arguments + Arguments{"--strict", "--force"});
    QCOMPARE(strict.code, warning.isEmpty() ? 0 : 2);
    QVERIFY2(strict.err.contains(warning), strict.err);
}

void CreateWarningTest::takesWarningsForErrorsWhenStrict()
{
    ToolFixture tool;
    const Run run = create(&tool, {"--strict", "--function", "", "a", "b", "c"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("error: " + tool.path("top.bin").toUtf8() +
                              ": functions[0].name: is empty"),
             run.err);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void CreateWarningTest::warnsOfTextsThatTheWindowWouldLose()
{
    ToolFixture tool;
    const Run run = create(&tool, {"--function", "fft: fast", "Bob", "7", "one\ntwo"});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("functions[0].name: the generator window would load no more of it "
                              "than \"fft\""),
             run.err);
    QVERIFY2(run.err.contains("functions[0].description: the generator window would load no more "
                              "of it than \"onetwo\""),
             run.err);
}

void CreateWarningTest::warnsOfADescriptionThatTheWindowWouldCut()
{
    for (const int length : {1000, 1001}) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        Arguments described = ToolFixture::described();
        described.back() = std::string(static_cast<std::size_t>(length), 'x');
        const Run run = tool.run(Arguments{"create", tool.argument("top.bin")} + described);
        QCOMPARE(run.code, 0);
        QCOMPARE(run.err.contains("warning: " + tool.path("top.bin").toUtf8() +
                                  ": description: has 1001 characters: the generator window cuts "
                                  "it behind 1000"),
                 length > 1000);
    }
}

void CreateWarningTest::warnsOfALocaleThatTheTargetDoesNotShare()
{
    ToolFixture tool;
    tool.environment.codec = QTextCodec::codecForName("ISO-8859-1");
    const Run run = create(&tool, {"--function", "Gr\xfcn", "Bob", "7", "x"});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("text: this locale writes texts in ISO-8859-1, but the target reads "
                              "UTF-8"),
             run.err);
    // One byte a letter, of the filler too.
    QVERIFY(tool.read("top.txt").contains("Function name: Gr\xfcn\n"));
    QVERIFY(tool.read("top.txt").endsWith("\xef\xbf\xbd"));
    QVERIFY(tool.read("top.txt").size() >= 2112 && tool.read("top.txt").size() <= 2114);
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf")}).code, 0);
    QCOMPARE(create(&tool, {"--force", "--strict"}).code, 2);
}

void CreateWarningTest::givesResultsAndWarningsWhenQuiet()
{
    ToolFixture tool;
    tool.write("top.bin", "not a bitstream");
    const Run run = tool.run(Arguments{"create", tool.argument("top.bin"), "--quiet"} +
                             ToolFixture::described());
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, QByteArray::fromStdString(tool.argument("top.fcf") + '\n' +
                                                tool.argument("top.txt") + '\n'));
    QVERIFY2(run.err.contains("warning: "), run.err);
    QCOMPARE(run.err.count('\n'), 1);
    QVERIFY(tool.run({"create", tool.argument("top.bin"), "--quiet"}).err.contains("error: "));
}

QTEST_GUILESS_MAIN(CreateWarningTest)
#include "CreateWarningTest.moc"
