#include "support/TestProgram.h"
#include "VerifyingTest.h"

#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

/// What a binary is by its first bytes: its sync word, and the order of its words.
class PayloadKindTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init() { m_tool.clear(); }
    void warnsOfABinaryThatIsNotRight_data();
    void warnsOfABinaryThatIsNotRight();
    void notesALengthThatIsNoMultipleOfFour();
    void refusesAnImageAsTheBinary();
    void namesTheOrderOfSwappedImages_data();
    void namesTheOrderOfSwappedImages();
    void swapsWhatItIsToldTo_data();
    void swapsWhatItIsToldTo();
    void hintsAtTheWholeSwapOption_data();
    void hintsAtTheWholeSwapOption();
    void refusesASwapThatCannotBe();
    void comparesWithASwappedBinary();
};

void PayloadKindTest::warnsOfABinaryThatIsNotRight_data()
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
    QTest::newRow("a boot image") << hex("feffffea").repeated(8) + hex("665599aa") + "XNLX"
                                  << QByteArray();
    QTest::newRow("swapped bytes behind dummy words")
        << dummies + dummies + hex("665599aa")
        << QByteArray("is byte-swapped: its sync word is 0x665599AA");
    QTest::newRow("swapped halfwords")
        << dummies + dummies + hex("5566aa99") << QByteArray("is halfword-swapped");
    QTest::newRow("swapped bytes in halfwords")
        << dummies + dummies + hex("99aa6655") << QByteArray("is byte-swapped in each halfword");
    QTest::newRow("swapped twice")
        << dummies + dummies + hex("66aa9955") << QByteArray("is bit-swapped and byte-swapped");
    QTest::newRow("behind much 0xFF") << QByteArray(8192, '\xff') + hex("aa995566") << QByteArray();
    QTest::newRow("swapped behind much 0xFF")
        << QByteArray(8192, '\xff') + hex("5599aa66") << QByteArray("is bit-swapped");
    QTest::newRow("the right one first") << right + hex("665599aa") << QByteArray();
    QTest::newRow("something else")
        << QByteArray("#!/bin/sh\n") << noSyncWord + "its first 4096 bytes";
}

void PayloadKindTest::warnsOfABinaryThatIsNotRight()
{
    QFETCH(QByteArray, binary);
    QFETCH(QByteArray, warning);
    ToolFixture tool;
    tool.write("top.bin", binary);
    const Run run = tool.create("top.bin");
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err.contains("warning: "), !warning.isEmpty());
    QVERIFY2(run.err.contains(warning), run.err);

    const Run strict = tool.create("top.bin", {"--strict", "--force"});
    QCOMPARE(strict.code, warning.isEmpty() ? 0 : 2);
    QVERIFY2(strict.err.contains(warning), strict.err);
}

void PayloadKindTest::notesALengthThatIsNoMultipleOfFour()
{
    m_tool.write("top.bin", ToolFixture::payload(101));
    const Run run = m_tool.create("top.bin", {"--force", "--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.finding("payload")["severity"].toString(), QString("note"));
    QCOMPARE(run.finding("payload")["reason"].toString(),
             QString("has 101 bytes, which is no multiple of 4"));
}

void PayloadKindTest::refusesAnImageAsTheBinary()
{
    m_tool.makeImage();
    QVERIFY(QFile::copy(m_tool.path("top.fcf"), m_tool.path("image.bin")));
    const Run run = m_tool.create("image.bin");
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("image.bin: payload: is an FCF image already: extract it first"),
             run.err);
    QVERIFY(!m_tool.exists("image.fcf"));
}

void PayloadKindTest::namesTheOrderOfSwappedImages_data()
{
    QTest::addColumn<QVector<int>>("order");
    QTest::addColumn<bool>("reversesBits");
    QTest::addColumn<QString>("name");
    QTest::newRow("bytes") << QVector<int>{3, 2, 1, 0} << false << "byte-swapped";
    QTest::newRow("halfwords") << QVector<int>{2, 3, 0, 1} << false << "halfword-swapped";
    QTest::newRow("bytes of halfwords")
        << QVector<int>{1, 0, 3, 2} << false << "byte-swapped in each halfword";
    QTest::newRow("bits") << QVector<int>{0, 1, 2, 3} << true << "bit-swapped";
    QTest::newRow("bits and bytes")
        << QVector<int>{3, 2, 1, 0} << true << "bit-swapped and byte-swapped";
    QTest::newRow("bits and bytes of halfwords")
        << QVector<int>{1, 0, 3, 2} << true << "bit-swapped and byte-swapped in each halfword";
}

void PayloadKindTest::namesTheOrderOfSwappedImages()
{
    QFETCH(QVector<int>, order);
    QFETCH(bool, reversesBits);
    QFETCH(QString, name);
    const QByteArray right = ForgedImage().bytes();
    QByteArray swapped;
    for (int word = 0; word + 4 <= right.size(); word += 4) {
        for (const int byte : order) {
            const auto bits = static_cast<uchar>(right.at(word + byte));
            uchar reversed = 0;
            for (int bit = 0; bit < 8; ++bit)
                reversed = static_cast<uchar>(reversed | ((bits >> bit & 1) << (7 - bit)));
            swapped += static_cast<char>(reversesBits ? reversed : bits);
        }
    }
    const Run run = verifyBytes(swapped);
    QCOMPARE(run.code, 1);
    QCOMPARE(
        run.finding("text")["reason"].toString(),
        QString("is no FCF file: its words are %1; read it in the order of the flash").arg(name));

    m_tool.write("top.bin", swapped);
    const Run made = m_tool.create("top.bin", {"--output", m_tool.argument("new.fcf")});
    QCOMPARE(made.code, 2);
    QVERIFY2(made.err.contains("payload: is a " + name.toUtf8() +
                               " FCF image: swap it back and extract it first\n"),
             made.err);
}

void PayloadKindTest::swapsWhatItIsToldTo_data()
{
    QTest::addColumn<QByteArray>("binary");
    QTest::addColumn<QString>("swap");
    QTest::newRow("bits") << QByteArray::fromHex("5599aa6680c00201") << "bits";
    QTest::newRow("bytes") << QByteArray::fromHex("665599aa80400301") << "bytes";
    QTest::newRow("halfwords") << QByteArray::fromHex("5566aa9940800103") << "halfwords";
    QTest::newRow("bytes in halfwords")
        << QByteArray::fromHex("99aa665503018040") << "bytes,halfwords";
    QTest::newRow("bits and bytes") << QByteArray::fromHex("66aa99550102c080") << "bits,bytes";
}

void PayloadKindTest::swapsWhatItIsToldTo()
{
    QFETCH(QByteArray, binary);
    QFETCH(QString, swap);
    ToolFixture tool;
    tool.write("top.bin", binary);
    const Run warned = tool.create("top.bin");
    QVERIFY2(warned.err.contains("--swap " + swap.toUtf8() + " repairs it"), warned.err);
    const Run run = tool.create("top.bin", {"--force", "--swap", swap.toStdString()});
    QCOMPARE(run.code, 0);
    QVERIFY2(!run.err.contains("warning: "), run.err);
    QVERIFY2(run.err.contains("note: ") && run.err.contains("swapped: " + swap.toUtf8()), run.err);
    QCOMPARE(tool.read("top.fcf").right(8), QByteArray::fromHex("aa99556601034080"));
}

void PayloadKindTest::hintsAtTheWholeSwapOption_data()
{
    QTest::addColumn<QByteArray>("binary");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QByteArray>("hint");
    const QByteArray bytes = QByteArray::fromHex("665599aa80400301");
    QTest::newRow("the wrong one") << bytes << "bits" << QByteArray("; --swap bytes repairs it\n");
    QTest::newRow("half of it") << QByteArray::fromHex("66aa99550102c080") << "bytes"
                                << QByteArray("; --swap bits,bytes repairs it\n");
    QTest::newRow("one too many") << bytes << "bytes,halfwords"
                                  << QByteArray("; --swap bytes repairs it\n");
    QTest::newRow("all three") << QByteArray::fromHex("995566aac08001 02") << "halfwords"
                               << QByteArray("; --swap bits,bytes,halfwords repairs it\n");
    QTest::newRow("none is right") << QByteArray::fromHex("aa99556601034080") << "halfwords"
                                   << QByteArray("; leave out --swap\n");
}

void PayloadKindTest::hintsAtTheWholeSwapOption()
{
    QFETCH(QByteArray, binary);
    QFETCH(QString, given);
    QFETCH(QByteArray, hint);
    ToolFixture tool;
    tool.write("top.bin", binary);
    const Run run = tool.create("top.bin", {"--swap", given.toStdString()});
    QVERIFY2(run.err.contains(hint), run.err);

    // What the hint says is all that there is to do.
    Arguments repaired{"--force"};
    const QRegularExpressionMatch swap = QRegularExpression("--swap (\\S+)").match(hint);
    if (swap.hasMatch())
        repaired = repaired + Arguments{"--swap", swap.captured(1).toStdString()};
    const Run again = tool.create("top.bin", repaired);
    QVERIFY2(again.code == 0 && !again.err.contains("warning: "), again.err);
    QCOMPARE(tool.read("top.fcf").right(8), QByteArray::fromHex("aa99556601034080"));
}

void PayloadKindTest::refusesASwapThatCannotBe()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(101));
    QVERIFY(tool.create("top.bin", {"--swap", "bytes"})
                .err.contains("--swap: needs whole words, but there are 101 bytes"));
    QVERIFY(tool.create("top.bin", {"--swap", "words"})
                .err.contains("--swap: \"words\" is none of bits, bytes and halfwords"));
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void PayloadKindTest::comparesWithASwappedBinary()
{
    ToolFixture tool;
    tool.makeImage();
    QByteArray swapped = tool.read("top.bin");
    for (int word = 0; word < swapped.size(); word += 4)
        std::reverse(swapped.begin() + word, swapped.begin() + word + 4);
    tool.write("swapped.bin", swapped);
    const Arguments verify = {"verify", tool.argument("top.fcf"), "--bin",
                              tool.argument("swapped.bin")};
    QCOMPARE(tool.run(verify).code, 1);
    const Run run = tool.run(verify + Arguments{"--swap", "bytes"});
    QVERIFY2(run.code == 0, run.out);
    QVERIFY2(run.out.contains("swapped: bytes"), run.out);
    QCOMPARE(tool.run(verify + Arguments{"--swap", "words"}).code, 2);
    // Without a binary there is nothing to swap.
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), "--swap", "bytes"}).code, 2);
}

ZORV_TEST(PayloadKindTest)
#include "PayloadKindTest.moc"
