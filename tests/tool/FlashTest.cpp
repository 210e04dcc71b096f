#include "ToolFixture.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QRegularExpression>
#include <QtTest>

#include <QFile>

#include <algorithm>

/// Images on their way to and from a flash, and binaries as development tools write them.
class FlashTest : public QObject {
    Q_OBJECT

private slots:
    void padsAnImage_data();
    void padsAnImage();
    void refusesAPaddingThatCannotBe_data();
    void refusesAPaddingThatCannotBe();
    void takesAnImageThatWasReadBack_data();
    void takesAnImageThatWasReadBack();
    void takesNothingButFillerBehindAnImage();
    void findsEachImageInADump_data();
    void findsEachImageInADump();
    void checksAnImageInADumpAsAlone();
    void refusesAnOffsetThatCannotBe_data();
    void refusesAnOffsetThatCannotBe();
    void leavesOutTheHeaderOfAContainer();
    void refusesAContainerThatIsCut();
    void refusesAContainerThatIsNotAsBuilt_data();
    void refusesAContainerThatIsNotAsBuilt();
    void comparesWithNoContainerThatIsCut();
    void namesThePlaceInAContainer();
    void swapsWhatItIsToldTo_data();
    void swapsWhatItIsToldTo();
    void hintsAtTheWholeSwapOption_data();
    void hintsAtTheWholeSwapOption();
    void refusesASwapThatCannotBe();
    void comparesWithAContainer();
    void comparesWithASwappedBinary();
    void padsInPieces();
    void leavesUnchangedFilesUntouched();
    void replacesWhatChanged_data();
    void replacesWhatChanged();
    void addsWhatIsMissingBesideAnUnchangedImage_data();
    void addsWhatIsMissingBesideAnUnchangedImage();
    void takesWhatIsRightBesideAnUnchangedImage_data();
    void takesWhatIsRightBesideAnUnchangedImage();
    void listsWhatItReads();
    void listsAnImageThatItIsLikeButNotItself();
    void refusesADepFileInTheWay_data();
    void refusesADepFileInTheWay();
    void givesTheDigestAsJson();

private:
    static Run create(ToolFixture* tool, const QString& name, const Arguments& more = {})
    {
        return tool->run(Arguments{"create", tool->argument(name)} + ToolFixture::described() +
                         more);
    }
    static QByteArray container(const QByteArray& payload);
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
        create(&tool, "top.bin", {"--force", "--digest", "--pad-to", padTo.toStdString()});
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("top.fcf"), image + QByteArray(bytes - image.size(), '\xff'));
    const Run verified = tool.run({"verify", tool.argument("top.fcf"), "--require-digest", "--bin",
                                   tool.argument("top.bin"), "--json"});
    QCOMPARE(verified.code, 0);
    const QJsonObject file = verified.json()["files"].toArray()[0].toObject();
    QCOMPARE(file["imageBytes"].toInt(), image.size());
    QCOMPARE(file["fillerBytes"].toInt(), bytes - image.size());
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
    const Run run = create(&tool, "top.bin", {"--pad-to", padTo.toStdString()});
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
    QCOMPARE(create(&tool, "top.bin", {"--force", "--digest"}).code, 0);
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

void FlashTest::takesNothingButFillerBehindAnImage()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("top.fcf", tool.read("top.fcf") + QByteArray(100, '\xff') + "x");
    const Run run = tool.run({"verify", tool.argument("top.fcf")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("101 bytes follow the payload, not all of them 0xFF"), run.out);
}

/// As development tools write it.
QByteArray FlashTest::container(const QByteArray& payload)
{
    const auto field = [](char key, const QByteArray& text) {
        return key + QByteArray(1, '\0') + static_cast<char>(text.size() + 1) + text + '\0';
    };
    QByteArray bytes = QByteArray::fromHex("00090ff00ff00ff00ff0000001");
    bytes += field('a', "top;UserID=0XFFFFFFFF") + field('b', "7k325tffg900") +
             field('c', "2024/05/31") + field('d', "13:45:00") + 'e';
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(payload.size() >> shift);
    return bytes + payload;
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
        QCOMPARE(create(&tool, binary, {"--digest"}).code, 0);
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
    QCOMPARE(create(&tool, "top.bin", {"--force", "--digest", "--pad-to", "3000K"}).code, 0);
    const QByteArray padded = tool.read("top.fcf");
    const QByteArray junk(5000, 'j');
    const std::string digest = tool.argument("top.fcf.sha256");
    const auto verify = [&](const QByteArray& dump) {
        tool.in = dump;
        return tool.run({"verify", "-", "--offset", "5000", "--digest", digest, "--json"});
    };
    const Run padding = verify(junk + padded);
    QVERIFY2(padding.code == 0, padding.out);
    const QJsonObject file = padding.json()["files"].toArray()[0].toObject();
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
    for (const QString& option : options)
        arguments.push_back(option.toStdString());
    const Run run = tool.run(arguments);
    QCOMPARE(run.code, 2);
    QVERIFY2((run.out + run.err).contains(message), run.out + run.err);
}

void FlashTest::leavesOutTheHeaderOfAContainer()
{
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    tool.write("top.bit", container(tool.read("top.bin")));
    const Run run = create(&tool, "top.bit", {"--force"});
    QVERIFY2(run.code == 0, run.err);
    QVERIFY2(run.err.contains("the header of its .bit container is left out: design "
                              "top;UserID=0XFFFFFFFF, part 7k325tffg900, 2024/05/31 13:45:00"),
             run.err);
    QVERIFY(!run.err.contains("warning: "));
    QCOMPARE(tool.read("top.fcf"), image);
    const QJsonObject json = create(&tool, "top.bit", {"--force", "--json"}).json();
    QCOMPARE(json["container"].toObject()["part"].toString(), QString("7k325tffg900"));
    QCOMPARE(json["header"].toObject()["binFileSize"].toInt(), 4000);
}

void FlashTest::refusesAContainerThatIsCut()
{
    ToolFixture tool;
    const QByteArray whole = container(ToolFixture::payload(4000));
    const int headerBytes = whole.size() - 4000;
    for (int bytes = 4; bytes < headerBytes; ++bytes) {
        tool.write("top.bit", whole.left(bytes));
        const Run run = create(&tool, "top.bit");
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains(
                     "top.bit: payload: is a .bit container that is cut: it ends in its header, "
                     "after " +
                     QByteArray::number(bytes) + " bytes; copy or build it again"),
                 run.err);
    }
    for (const int bytes : {0, 1, 3999}) {
        tool.write("top.bit", whole.left(headerBytes + bytes));
        const Run run = create(&tool, "top.bit");
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains("top.bit: payload: is a .bit container that is cut: " +
                                  QByteArray::number(bytes) +
                                  " of its 4000 bytes follow the header; copy or build it again"),
                 run.err);
    }
    QCOMPARE(tool.names(), QStringList("top.bit"));
}

void FlashTest::refusesAContainerThatIsNotAsBuilt_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray payload = ToolFixture::payload(4000);
    const QByteArray whole = container(payload);
    const int headerBytes = whole.size() - payload.size();
    const QByteArray magic = whole.left(13);
    const auto lacks = [](const QByteArray& expected, int offset) {
        return "is a .bit container with an unknown header: it lacks " + expected + " at offset " +
               QByteArray::number(offset) + "; take the .bin file of the same build";
    };
    QTest::newRow("more behind it")
        << whole + "xyz"
        << QByteArray("is a .bit container of 4000 bytes with 3 more behind it: take off what was "
                      "added");
    QTest::newRow("its first bytes alone") << magic + payload << lacks("the field \"a\"", 13);
    QTest::newRow("fewer of them") << magic.left(8) + payload << lacks("the right first bytes", 0);
    const int partBytes = 1 + 2 + 13;
    const int designBytes = 1 + 2 + 22;
    QTest::newRow("fields in another order")
        << magic + whole.mid(13 + designBytes, partBytes) + whole.mid(13, designBytes) +
               whole.mid(13 + designBytes + partBytes)
        << lacks("the field \"a\"", 13);
    QTest::newRow("another key") << QByteArray(whole).replace(13 + designBytes, 1, "f")
                                 << lacks("the field \"b\"", 13 + designBytes);
    QTest::newRow("another key of the payload")
        << QByteArray(whole).replace(headerBytes - 5, 1, "E")
        << lacks("the field \"e\"", headerBytes - 5);
    QTest::newRow("a container in a container")
        << container(whole) << QByteArray("has a .bit container in it: take its header off first");
}

void FlashTest::refusesAContainerThatIsNotAsBuilt()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, reason);
    ToolFixture tool;
    // What it is follows from its bytes, whatever its name.
    for (const QString name : {"top.bit", "top.bin"}) {
        tool.write(name, bytes);
        const Run run = create(&tool, name);
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains(name.toUtf8() + ": payload: " + reason), run.err);
    }
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.bit"}));
}

void FlashTest::comparesWithNoContainerThatIsCut()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("top.bit", container(ToolFixture::payload(4000)).chopped(1));
    const Run run =
        tool.run({"verify", tool.argument("top.fcf"), "--bin", tool.argument("top.bit")});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("3999 of its 4000 bytes follow"), run.err);
    QVERIFY2(!run.out.contains("has not the length"), run.out);
}

void FlashTest::namesThePlaceInAContainer()
{
    ToolFixture tool;
    const QByteArray bytes = container("junk" + ToolFixture::payload(4000));
    tool.write("top.bit", bytes);
    const Run run = create(&tool, "top.bit");
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("payload at offset " + QByteArray::number(bytes.size() - 4004) +
                              ": something else is in front of the configuration"),
             run.err);
}

void FlashTest::swapsWhatItIsToldTo_data()
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

void FlashTest::swapsWhatItIsToldTo()
{
    QFETCH(QByteArray, binary);
    QFETCH(QString, swap);
    ToolFixture tool;
    tool.write("top.bin", binary);
    const Run warned = create(&tool, "top.bin");
    QVERIFY2(warned.err.contains("--swap " + swap.toUtf8() + " repairs it"), warned.err);
    const Run run = create(&tool, "top.bin", {"--force", "--swap", swap.toStdString()});
    QCOMPARE(run.code, 0);
    QVERIFY2(!run.err.contains("warning: "), run.err);
    QVERIFY2(run.err.contains("note: ") && run.err.contains("swapped: " + swap.toUtf8()), run.err);
    QCOMPARE(tool.read("top.fcf").right(8), QByteArray::fromHex("aa99556601034080"));
}

void FlashTest::comparesWithAContainer()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("top.bit", container(ToolFixture::payload(4000)));
    const std::string image = tool.argument("top.fcf");
    Run run = tool.run({"verify", image, "--bin", tool.argument("top.bit"), "--json"});
    QVERIFY2(run.code == 0, run.out);
    QVERIFY(run.json()["container"].toObject()["headerBytes"].toInt() > 0);
    QVERIFY(run.json()["files"].toArray()[0].toObject()["payloadCompared"].toBool());
    QByteArray other = ToolFixture::payload(4000);
    other[100] = static_cast<char>(other.at(100) ^ 1);
    tool.write("top.bit", container(other));
    run = tool.run({"verify", image, "--bin", tool.argument("top.bit"), "--json"});
    QCOMPARE(run.code, 1);
    const int headerBytes = run.json()["container"].toObject()["headerBytes"].toInt();
    QVERIFY2(run.out.contains("of which this is offset " + QByteArray::number(headerBytes + 100)),
             run.out);
}

void FlashTest::comparesWithASwappedBinary()
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

void FlashTest::padsInPieces()
{
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    // More than one piece, and no whole number of them.
    const int bytes = 5 * 1024 * 1024 + 3;
    const Arguments padded = {"--digest", "--pad-to", std::to_string(bytes)};
    QCOMPARE(create(&tool, "top.bin", padded + Arguments{"--force"}).code, 0);
    QCOMPARE(tool.read("top.fcf"), image + QByteArray(bytes - image.size(), '\xff'));
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), "--require-digest"}).code, 0);
    const Run again = create(&tool, "top.bin", padded + Arguments{"--if-changed"});
    QVERIFY2(again.out.contains("top.fcf: unchanged"), again.out);
}

void FlashTest::hintsAtTheWholeSwapOption_data()
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

/// Whoever does what the hint says is done.
void FlashTest::hintsAtTheWholeSwapOption()
{
    QFETCH(QByteArray, binary);
    QFETCH(QString, given);
    QFETCH(QByteArray, hint);
    ToolFixture tool;
    tool.write("top.bin", binary);
    const Run run = create(&tool, "top.bin", {"--swap", given.toStdString()});
    QVERIFY2(run.err.contains(hint), run.err);

    Arguments repaired{"--force"};
    const QRegularExpressionMatch swap = QRegularExpression("--swap (\\S+)").match(hint);
    if (swap.hasMatch())
        repaired = repaired + Arguments{"--swap", swap.captured(1).toStdString()};
    const Run again = create(&tool, "top.bin", repaired);
    QVERIFY2(again.code == 0 && !again.err.contains("warning: "), again.err);
    QCOMPARE(tool.read("top.fcf").right(8), QByteArray::fromHex("aa99556601034080"));
}

void FlashTest::refusesASwapThatCannotBe()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(101));
    QVERIFY(create(&tool, "top.bin", {"--swap", "bytes"})
                .err.contains("--swap: needs whole words, but there are 101 bytes"));
    QVERIFY(create(&tool, "top.bin", {"--swap", "words"})
                .err.contains("--swap: \"words\" is none of bits, bytes and halfwords"));
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void FlashTest::leavesUnchangedFilesUntouched()
{
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(create(&tool, "top.bin", {"--if-changed", "--digest"}).code, 0);
    const auto stamps = [&tool] {
        QStringList all;
        for (const char* const name : {"top.fcf", "top.txt", "top.fcf.sha256"})
            all << QFileInfo(tool.path(name)).lastModified().toString(Qt::ISODateWithMs);
        return all;
    };
    const QStringList before = stamps();
    tool.environment.clock = [] { return QDateTime({2030, 1, 1}, {0, 0, 0}); };
    QTest::qWait(20);
    const Run run = create(&tool, "top.bin", {"--if-changed", "--digest"});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.contains("top.fcf: unchanged\n"), run.out);
    const Run quiet = create(&tool, "top.bin", {"--if-changed", "--digest", "--quiet"});
    QCOMPARE(quiet.code, 0);
    QCOMPARE(quiet.out + quiet.err, QByteArray());
    QCOMPARE(stamps(), before);
    const QJsonObject json =
        create(&tool, "top.bin", {"--if-changed", "--digest", "--json"}).json();
    QVERIFY(!json["changed"].toBool(true));
    QCOMPARE(json["header"].toObject()["time"].toString(), QString("13:45:00"));
}

void FlashTest::replacesWhatChanged_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("the binary") << "top.bin" << ToolFixture::payload(4001) << QStringList();
    QTest::newRow("a byte of it") << "top.bin" << ToolFixture::payload(3999) + "!" << QStringList();
    QTest::newRow("the companion") << "top.txt" << ForgedImage().page() << QStringList();
    QTest::newRow("the digest") << "top.fcf.sha256" << QByteArray(64, 'a') + "  top.fcf\n"
                                << QStringList();
    QTest::newRow("the image") << "top.fcf" << ForgedImage().bytes() << QStringList();
    QTest::newRow("a function") << "other" << QByteArray()
                                << QStringList{"--function", "a", "b", "c", "d"};
    QTest::newRow("the padding") << "other" << QByteArray() << QStringList{"--pad-to", "page"};
}

void FlashTest::replacesWhatChanged()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(create(&tool, "top.bin", {"--force", "--digest"}).code, 0);
    tool.write(name, bytes);
    Arguments more{"--if-changed", "--digest"};
    for (const QString& option : options)
        more.push_back(option.toStdString());
    const Run run = create(&tool, "top.bin", more);
    QVERIFY2(run.code == 0, run.err);
    const QByteArray written = name == "top.bin" || name == "other" ? "top.fcf" : name.toUtf8();
    QVERIFY2(run.out.contains('/' + written + '\n'), run.out);
    QCOMPARE(tool.verifyAll().code, 0);
}

void FlashTest::addsWhatIsMissingBesideAnUnchangedImage_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::newRow("the companion") << QStringList("top.txt");
    QTest::newRow("the digest") << QStringList("top.fcf.sha256");
    QTest::newRow("both") << QStringList{"top.txt", "top.fcf.sha256"};
}

void FlashTest::addsWhatIsMissingBesideAnUnchangedImage()
{
    QFETCH(QStringList, missing);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray image = tool.read("top.fcf");
    const QByteArray companion = tool.read("top.txt");
    const QDateTime stamp = QFileInfo(tool.path("top.fcf")).lastModified();
    for (const QString& name : missing)
        QVERIFY(QFile::remove(tool.path(name)));

    // A companion of the time of this run would not be that of the image.
    tool.environment.clock = [] { return QDateTime({2030, 1, 1}, {0, 0, 0}); };
    QTest::qWait(20);
    const Run run = tool.run(tool.createAll({"--if-changed", "--strict"}));
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.txt"), companion);
    QCOMPARE(QFileInfo(tool.path("top.fcf")).lastModified(), stamp);
    QCOMPARE(tool.verifyAll().code, 0);

    QVERIFY2(run.out.contains("top.fcf: unchanged\n"), run.out);
    for (const QString& name : {QString("top.txt"), QString("top.fcf.sha256")})
        QCOMPARE(run.out.contains('/' + name.toUtf8() + '\n'), missing.contains(name));
}

void FlashTest::takesWhatIsRightBesideAnUnchangedImage_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("wrong");
    QTest::newRow("a digest") << QStringList() << "top.fcf.sha256";
    QTest::newRow("a companion") << QStringList{"--digest", "--no-companion"} << "top.txt";
}

void FlashTest::takesWhatIsRightBesideAnUnchangedImage()
{
    QFETCH(QStringList, options);
    QFETCH(QString, wrong);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    Arguments arguments{"--if-changed", "--strict"};
    for (const QString& option : options)
        arguments.push_back(option.toStdString());

    const QByteArray right = tool.read(wrong);
    Run run = create(&tool, "top.bin", arguments);
    QVERIFY2(run.code == 0, run.err);

    // One of another form is as right, and one of another image is not.
    if (wrong.endsWith(".sha256")) {
        tool.write(wrong, right.left(64) + " *out/top.fcf\n");
        QCOMPARE(create(&tool, "top.bin", arguments).code, 0);
    }
    QByteArray other = right;
    other.replace(wrong.endsWith(".txt") ? "Ann" : right.left(1),
                  wrong.endsWith(".txt") ? "Bob" : "x");
    tool.write(wrong, other);
    run = create(&tool, "top.bin", arguments);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("will not belong to the new image"), run.err);
    QCOMPARE(tool.read(wrong), other);
}

void FlashTest::listsWhatItReads()
{
    ToolFixture tool;
    tool.makeImage();
    QVERIFY(QFile::rename(tool.path("top.bin"), tool.path("a $b #c.bin")));
    tool.write("notes.txt", "notes");
    tool.write("r.json", "{\"recipe\": 2, \"author\": \"Ann\", \"ciNumber\": \"42\", \"module\": "
                         "\"DFE\", \"device\": \"Interface_FPGA\", \"configNumber\": 1, "
                         "\"version\": \"1.0\", \"descriptionFile\": \"notes.txt\"}");
    const QByteArray folder = QByteArray::fromStdString(tool.argument("")) + '/';
    const Arguments create{
        "create", tool.argument("a $b #c.bin"), "--output",  tool.argument("x y.fcf"),
        "--like", tool.argument("r.json"),      "--depfile", tool.argument("x.d")};
    Run run = tool.run(create);
    QVERIFY2(run.code == 0, run.err);
    const QByteArray inputs = " \\\n  " + folder + "r.json \\\n  " + folder + "notes.txt \\\n  " +
                              folder + "a\\ $$b\\ \\#c.bin\n";
    QCOMPARE(tool.read("x.d"), folder + "x\\ y.fcf:" + inputs);

    // It is written again when nothing else is, as the inputs may have changed.
    QVERIFY(QFile::remove(tool.path("x.d")));
    run = tool.run(create + Arguments{"--if-changed", "--depfile-target", "stamp"});
    QVERIFY2(run.out.contains("x y.fcf: unchanged"), run.out);
    QCOMPARE(tool.read("x.d"), "stamp:" + inputs);
}

void FlashTest::listsAnImageThatItIsLikeButNotItself()
{
    ToolFixture tool;
    tool.makeImage();
    QVERIFY(QFile::copy(tool.path("top.fcf"), tool.path("old.fcf")));
    tool.write("notes.txt", "notes");
    const auto inputs = [&](const char* like) {
        const Run run = tool.run({"create", tool.argument("top.bin"), "--like", tool.argument(like),
                                  "--force", "--description", "@" + tool.argument("notes.txt"),
                                  "--depfile", tool.argument("top.d")});
        return run.code == 0 ? tool.read("top.d") : run.err;
    };
    const QByteArray folder = QByteArray::fromStdString(tool.argument("")) + '/';
    const QByteArray other = inputs("old.fcf");
    QCOMPARE(other.count("old.fcf"), 1);
    QCOMPARE(other.count("top.fcf"), 1);
    const QByteArray own = inputs("top.fcf");
    QCOMPARE(own.count("top.fcf"), 1);
    QVERIFY(own.startsWith(folder + "top.fcf:"));
    QVERIFY2(own.contains(folder + "notes.txt") && own.contains(folder + "top.bin"), own);
}

void FlashTest::refusesADepFileInTheWay_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("the binary") << "top.bin";
    QTest::newRow("the image") << "new.fcf";
    QTest::newRow("the companion") << "new.txt";
    QTest::newRow("the digest") << "./new.fcf.sha256";
    QTest::newRow("a folder") << ".";
}

void FlashTest::refusesADepFileInTheWay()
{
    QFETCH(QString, file);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const Run run = create(
        &tool, "top.bin", {"--output", tool.argument("new.fcf"), "--depfile", tool.argument(file)});
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.names(), QStringList("top.bin"));
    QCOMPARE(tool.read("top.bin"), ToolFixture::payload(4000));
}

void FlashTest::givesTheDigestAsJson()
{
    ToolFixture tool;
    tool.makeImage();
    const QJsonObject json = create(&tool, "top.bin", {"--force", "--json"}).json();
    QCOMPARE(json["sha256"].toString().toLatin1(),
             QCryptographicHash::hash(tool.read("top.fcf"), QCryptographicHash::Sha256).toHex());
}

QTEST_GUILESS_MAIN(FlashTest)
#include "FlashTest.moc"
