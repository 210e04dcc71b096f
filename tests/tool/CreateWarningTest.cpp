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
    const auto hex = [](const char* bytes) { return QByteArray::fromHex(bytes); };
    const QByteArray dummies(16, '\xff');
    const QByteArray busWidth = hex("000000bb11220044");
    const QByteArray right = hex("aa995566");
    const QByteArray noSyncWord = "payload: the binary has no sync word 0xAA995566 in ";
    const auto inFront = [](int offset, int sync) {
        return "payload at offset " + QByteArray::number(offset) +
               ": something else is in front of the configuration, whose sync word is at offset " +
               QByteArray::number(sync) +
               ": take it off, or give the .bin or .bit file as it was built";
    };
    QTest::newRow("the sync word") << dummies + right << QByteArray();
    QTest::newRow("the sync word at once") << right << QByteArray();
    QTest::newRow("bus width words")
        << dummies + busWidth + dummies + dummies + right << QByteArray();
    QTest::newRow("bus width words a long way ahead")
        << busWidth + QByteArray(8192, '\xff') + right << QByteArray();
    QTest::newRow("one of the two bus width words")
        << hex("11220044") + dummies + right << QByteArray();
    QTest::newRow("a byte in front") << "x" + right << inFront(0, 1);
    QTest::newRow("no whole dummy word") << QByteArray(7, '\xff') + right << inFront(4, 7);
    QTest::newRow("four bytes behind the dummy words")
        << dummies + "junk" + dummies + right << inFront(16, 36);
    QTest::newRow("an HTTP header")
        << "HTTP/1.1 200 OK\r\n\r\n" + dummies + right << inFront(0, 35);
    QTest::newRow("almost a bus width word") << hex("000000ba") + right << inFront(0, 4);
    QTest::newRow("the sync word just within reach")
        << QByteArray(4092, 'x') + right << inFront(0, 4092);
    QTest::newRow("the sync word too late")
        << QByteArray(4093, 'x') + right
        << noSyncWord + "its first 4096 bytes: give the .bin or .bit file of a configuration";
    QTest::newRow("the sync word too late behind 0xFF")
        << dummies + QByteArray(4093, 'x') + right
        << noSyncWord + "the first 4096 bytes behind its leading 0xFF";
    QTest::newRow("erased flash") << QByteArray(4224, '\xff')
                                  << QByteArray("payload: the binary is erased flash, 0xFF from "
                                                "its start: give the .bin or .bit file");
    QTest::newRow("swapped bytes") << dummies + hex("bb00000044002211") + hex("665599aa")
                                   << QByteArray("payload at offset 24: the binary is "
                                                 "byte-swapped: its sync word is 0x665599AA, not "
                                                 "0xAA995566; --swap bytes repairs it\n");
    QTest::newRow("swapped bytes where a boot image has its mark")
        << dummies + hex("bb00000044002211") + QByteArray(8, '\xff') + hex("665599aa")
        << QByteArray("payload at offset 32: the binary is byte-swapped");
    QTest::newRow("swapped bits")
        << dummies + hex("000000dd88440022") + hex("5599aa66")
        << QByteArray("payload at offset 24: the binary is bit-swapped: its sync word is "
                      "0x5599AA66, not 0xAA995566; --swap bits repairs it\n");
    QTest::newRow("swapped bytes behind right bus width words")
        << busWidth + hex("665599aa")
        << QByteArray("payload at offset 0: the binary is byte-swapped: its sync word is "
                      "0x665599AA, not 0xAA995566; --swap bytes repairs it; something else is in "
                      "front of the configuration, whose sync word is at offset 8: ");
    QTest::newRow("the right one first") << right + hex("665599aa") << QByteArray();
    QTest::newRow("something else")
        << QByteArray("#!/bin/sh\n") << noSyncWord + "its first 4096 bytes";
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
