#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QJsonArray>
#include <QtTest>

/// Images as a flash has them: padded, read back, and within a dump.
class FlashTest : public QObject {
    Q_OBJECT

private slots:
    void padsAnImage_data();
    void padsAnImage();
    void padsInPieces();
    void refusesAPaddingThatCannotBe_data();
    void refusesAPaddingThatCannotBe();
    void takesAnImageThatWasReadBack_data();
    void takesAnImageThatWasReadBack();
    void findsEachImageInADump_data();
    void findsEachImageInADump();
    void checksAnImageInADumpAsAlone();
    void refusesAnOffsetThatCannotBe_data();
    void refusesAnOffsetThatCannotBe();
};

void FlashTest::padsAnImage_data()
{
    QTest::addColumn<QString>("padTo");
    QTest::addColumn<int>("bytes");
    QTest::newRow("a page") << "page" << 3 * 2112;
    QTest::newRow("a block") << "block" << 64 * 2112;
    QTest::newRow("a number of bytes") << "10000" << 10000;
    QTest::newRow("its own size") << "6116" << 6116;
    QTest::newRow("KiB") << "7K" << 7 * 1024;
    QTest::newRow("KiB in lower case") << "7k" << 7 * 1024;
    QTest::newRow("MiB") << "1M" << 1024 * 1024;
    QTest::newRow("a hexadecimal number") << "0x1F40" << 8000;
}

void FlashTest::padsAnImage()
{
    QFETCH(QString, padTo);
    QFETCH(int, bytes);
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    QCOMPARE(image.size(), 6116);
    const Run run =
        tool.create("top.bin", {"--force", "--digest", "--pad-to", padTo.toStdString()});
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("top.fcf"), image + QByteArray(bytes - image.size(), '\xff'));
    const Run verified = tool.run({"verify", tool.argument("top.fcf"), "--require-digest", "--bin",
                                   tool.argument("top.bin"), "--json"});
    QCOMPARE(verified.code, 0);
    const QJsonObject file = verified.firstFile();
    QCOMPARE(file["imageBytes"].toInt(), image.size());
    QCOMPARE(file["fillerBytes"].toInt(), bytes - image.size());
}

void FlashTest::padsInPieces()
{
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    // More than one piece, and no whole number of them.
    const int bytes = 5 * 1024 * 1024 + 3;
    const Arguments padded = {"--digest", "--pad-to", std::to_string(bytes)};
    QCOMPARE(tool.create("top.bin", padded + Arguments{"--force"}).code, 0);
    QCOMPARE(tool.read("top.fcf"), image + QByteArray(bytes - image.size(), '\xff'));
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), "--require-digest"}).code, 0);
    const Run again = tool.create("top.bin", padded + Arguments{"--if-changed"});
    QVERIFY2(again.out.contains("top.fcf: unchanged"), again.out);
}

void FlashTest::refusesAPaddingThatCannotBe_data()
{
    QTest::addColumn<QString>("padTo");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("too few bytes") << "6115" << QByteArray("the image has 6116 bytes already");
    QTest::newRow("another word") << "slot" << QByteArray("is neither page, block nor a number");
    for (const char* const number : {"7KB", "7 K", "K", "0x", "0x1g", "-1", "1.5M", "1F40", "0x0",
                                     "2G", "9999999999M", "3000000000"})
        QTest::newRow(number) << number
                              << QByteArray("is neither page, block nor a number of bytes like "
                                            "135168, 0x21000, 132K or 2M");
    QTest::newRow("zero") << "0" << QByteArray("is neither page, block nor a number");
}

void FlashTest::refusesAPaddingThatCannotBe()
{
    QFETCH(QString, padTo);
    QFETCH(QByteArray, message);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const Run run = tool.create("top.bin", {"--pad-to", padTo.toStdString()});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("--pad-to: ") && run.err.contains(message), run.err);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void FlashTest::takesAnImageThatWasReadBack_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("to the end of a page") << 3 * 2112;
    QTest::newRow("to the end of a block") << 64 * 2112;
    QTest::newRow("to the end of a slot") << 3 * 64 * 2112;
}

void FlashTest::takesAnImageThatWasReadBack()
{
    QFETCH(int, bytes);
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(tool.create("top.bin", {"--force", "--digest"}).code, 0);
    const QByteArray image = tool.read("top.fcf");
    tool.write("top.fcf", image + QByteArray(bytes - image.size(), '\xff'));
    // The digest is of the image as it was written.
    const Run run = tool.run({"verify", tool.argument("top.fcf"), "--require-digest", "--bin",
                              tool.argument("top.bin")});
    QVERIFY2(run.code == 0, run.out);
    QVERIFY2(run.out.contains("payload at offset 6116: ends here; " +
                              QByteArray::number(bytes - image.size()) + " bytes of 0xFF follow"),
             run.out);
    QCOMPARE(tool.run({"extract", tool.argument("top.fcf"), "--output", "-"}).out,
             tool.read("top.bin"));
}

void FlashTest::findsEachImageInADump_data()
{
    QTest::addColumn<QString>("offset");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("note");
    QTest::newRow("the first") << "0"
                               << "first" << QByteArray("another image follows, at --offset 8192");
    QTest::newRow("the second") << "8K"
                                << "second"
                                << QByteArray("another image follows, at --offset 14406");
    QTest::newRow("the third, without 0xFF in front of it")
        << "0x3846"
        << "third"
        << QByteArray("9 bytes that are no image follow and are not checked, from "
                      "offset 32768 on");
}

void FlashTest::findsEachImageInADump()
{
    QFETCH(QString, offset);
    QFETCH(QString, name);
    QFETCH(QByteArray, note);
    ToolFixture tool;
    QByteArray dump;
    const struct {
        const char* name;
        int payloadBytes;
        int end;
    } images[] = {{"first", 4000, 8192}, {"second", 4101, 14406}, {"third", 4202, 32768}};
    for (const auto& image : images) {
        const QString binary = QString("%1.bin").arg(image.name);
        tool.write(binary, ToolFixture::payload(image.payloadBytes));
        QCOMPARE(tool.create(binary, {"--digest"}).code, 0);
        dump += tool.read(QString("%1.fcf").arg(image.name));
        dump += QByteArray(image.end - dump.size(), '\xff');
    }
    tool.write("dump.fcf", dump + "leftovers");
    // Of the whole dump, and wrong for each image.
    tool.write("dump.txt", "notes");
    tool.write("dump.fcf.sha256", QByteArray(64, '0') + "  dump.fcf\n");

    const Arguments at{tool.argument("dump.fcf"), "--offset", offset.toStdString()};
    const Run run = tool.run(Arguments{"verify"} + at +
                             Arguments{"--bin", tool.argument(name + ".bin"), "--companion",
                                       tool.argument(name + ".txt"), "--digest",
                                       tool.argument(name + ".fcf.sha256")});
    QVERIFY2(run.code == 0, run.out);
    QVERIFY2(run.out.contains("--offset: " + note + "\n"), run.out);

    const Run taken =
        tool.run(Arguments{"extract"} + at + Arguments{"--output", tool.argument("out.bin")});
    QVERIFY2(taken.code == 0, taken.err);
    QCOMPARE(tool.read("out.bin"), tool.read(name + ".bin"));
}

void FlashTest::checksAnImageInADumpAsAlone()
{
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(tool.create("top.bin", {"--force", "--digest", "--pad-to", "3000K"}).code, 0);
    const QByteArray padded = tool.read("top.fcf");
    const QByteArray junk(5000, 'j');
    const std::string digest = tool.argument("top.fcf.sha256");
    const auto verify = [&](const QByteArray& dump) {
        tool.in = dump;
        return tool.run({"verify", "-", "--offset", "5000", "--digest", digest, "--json"});
    };
    const Run padding = verify(junk + padded);
    QVERIFY2(padding.code == 0, padding.out);
    const QJsonObject file = padding.firstFile();
    QCOMPARE(file["imageBytes"].toInt(), 6116);
    QCOMPARE(file["fillerBytes"].toInt(), padded.size() - 6116);

    // What is damaged is found, and counted from the start of the image.
    QByteArray damaged = padded;
    damaged[44] = 'x';
    const Run reserved = verify(junk + damaged);
    QCOMPARE(reserved.code, 1);
    QCOMPARE(reserved.finding("reserved[0]")["offset"].toInt(), 44);
    damaged = padded;
    damaged[3000] = static_cast<char>(damaged.at(3000) ^ 1);
    QCOMPARE(verify(junk + damaged).code, 1);
    const Run cut = verify(junk + padded.left(6115));
    QCOMPARE(cut.code, 1);
    QVERIFY2(cut.out.contains("1 byte is missing at the end"), cut.out);
    QCOMPARE(verify(junk + "x" + padded).code, 1);

    tool.in = junk + damaged;
    QCOMPARE(tool.run({"verify", "-", "--offset", "5000", "--require-digest"}).code, 1);
}

void FlashTest::refusesAnOffsetThatCannotBe_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no number") << QStringList{"--offset", "slot2"}
                               << QByteArray("--offset: \"slot2\" is no number of bytes like");
    QTest::newRow("a negative number")
        << QStringList{"--offset", "-1"} << QByteArray("--offset: \"-1\" is no number of bytes");
    QTest::newRow("the end") << QStringList{"--offset", "6116"}
                             << QByteArray("6116 is behind the end: the file has 6116 bytes");
    QTest::newRow("a companion") << QStringList{"--offset", "0", "--type", "companion"}
                                 << QByteArray("--offset: is of an image");
    QTest::newRow("two files") << QStringList{"--offset", "0", "other.fcf"}
                               << QByteArray("and --offset are about one file");
}

void FlashTest::refusesAnOffsetThatCannotBe()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, message);
    ToolFixture tool;
    tool.makeImage();
    Arguments arguments{"verify", tool.argument("top.fcf")};
    arguments = arguments + toArguments(options);
    const Run run = tool.run(arguments);
    QCOMPARE(run.code, 2);
    QVERIFY2((run.out + run.err).contains(message), run.out + run.err);
}

ZORV_TEST(FlashTest)
#include "FlashTest.moc"
