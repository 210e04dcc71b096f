#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QtTest>

#include <algorithm>

/// Binaries in the .bit container of the development tools.
class ContainerTest : public QObject {
    Q_OBJECT

private slots:
    void leavesOutTheHeaderOfAContainer();
    void refusesAContainerThatIsCut();
    void refusesAContainerThatIsNotAsBuilt_data();
    void refusesAContainerThatIsNotAsBuilt();
    void namesThePlaceInAContainer();
    void comparesWithAContainer();
    void comparesWithNoContainerThatIsCut();
    void swapsWhatIsInAContainer();

private:
    static QByteArray container(const QByteArray& payload);
};

/// As development tools write it.
QByteArray ContainerTest::container(const QByteArray& payload)
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

void ContainerTest::leavesOutTheHeaderOfAContainer()
{
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    tool.write("top.bit", container(tool.read("top.bin")));
    const Run run = tool.create("top.bit", {"--force"});
    QVERIFY2(run.code == 0, run.err);
    QVERIFY2(run.err.contains("the header of its .bit container is left out: design "
                              "top;UserID=0XFFFFFFFF, part 7k325tffg900, 2024/05/31 13:45:00"),
             run.err);
    QVERIFY(!run.err.contains("warning: "));
    QCOMPARE(tool.read("top.fcf"), image);
    const QJsonObject json = tool.create("top.bit", {"--force", "--json"}).json();
    QCOMPARE(json["container"].toObject()["part"].toString(), QString("7k325tffg900"));
    QCOMPARE(json["header"].toObject()["binFileSize"].toInt(), 4000);
}

void ContainerTest::refusesAContainerThatIsCut()
{
    ToolFixture tool;
    const QByteArray whole = container(ToolFixture::payload(4000));
    const int headerBytes = whole.size() - 4000;
    for (int bytes = 4; bytes < headerBytes; ++bytes) {
        tool.write("top.bit", whole.left(bytes));
        const Run run = tool.create("top.bit");
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains(
                     "top.bit: payload: is a .bit container that is cut: it ends in its header, "
                     "after " +
                     QByteArray::number(bytes) + " bytes; copy or build it again"),
                 run.err);
    }
    for (const int bytes : {0, 1, 3999}) {
        tool.write("top.bit", whole.left(headerBytes + bytes));
        const Run run = tool.create("top.bit");
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains("top.bit: payload: is a .bit container that is cut: " +
                                  QByteArray::number(bytes) +
                                  " of its 4000 bytes follow the header; copy or build it again"),
                 run.err);
    }
    QCOMPARE(tool.names(), QStringList("top.bit"));
}

void ContainerTest::refusesAContainerThatIsNotAsBuilt_data()
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

void ContainerTest::refusesAContainerThatIsNotAsBuilt()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, reason);
    ToolFixture tool;
    // What it is follows from its bytes, whatever its name.
    for (const QString name : {"top.bit", "top.bin"}) {
        tool.write(name, bytes);
        const Run run = tool.create(name);
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains(name.toUtf8() + ": payload: " + reason), run.err);
    }
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.bit"}));
}

void ContainerTest::namesThePlaceInAContainer()
{
    ToolFixture tool;
    const QByteArray bytes = container("junk" + ToolFixture::payload(4000));
    tool.write("top.bit", bytes);
    const Run run = tool.create("top.bit");
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("payload at offset " + QByteArray::number(bytes.size() - 4004) +
                              ": something else is in front of the configuration"),
             run.err);
}

void ContainerTest::comparesWithAContainer()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("top.bit", container(ToolFixture::payload(4000)));
    const std::string image = tool.argument("top.fcf");
    Run run = tool.run({"verify", image, "--bin", tool.argument("top.bit"), "--json"});
    QVERIFY2(run.code == 0, run.out);
    QVERIFY(run.json()["container"].toObject()["headerBytes"].toInt() > 0);
    QVERIFY(run.firstFile()["payloadCompared"].toBool());
    QByteArray other = ToolFixture::payload(4000);
    other[100] = static_cast<char>(other.at(100) ^ 1);
    tool.write("top.bit", container(other));
    run = tool.run({"verify", image, "--bin", tool.argument("top.bit"), "--json"});
    QCOMPARE(run.code, 1);
    const int headerBytes = run.json()["container"].toObject()["headerBytes"].toInt();
    QVERIFY2(run.out.contains("of which this is offset " + QByteArray::number(headerBytes + 100)),
             run.out);
}

void ContainerTest::comparesWithNoContainerThatIsCut()
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

void ContainerTest::swapsWhatIsInAContainer()
{
    ToolFixture tool;
    QByteArray swapped = ToolFixture::payload(4000);
    for (int word = 0; word < swapped.size(); word += 4)
        std::reverse(swapped.begin() + word, swapped.begin() + word + 4);
    tool.write("top.bit", container(swapped));

    const Run made = tool.create("top.bit", {"--swap", "bytes", "--pad-to", "block", "--digest"});
    QVERIFY2(made.code == 0, made.err);
    QCOMPARE(tool.read("top.fcf").size(), 64 * 2112);
    const Run verified =
        tool.run({"verify", tool.argument("top.fcf"), "--bin", tool.argument("top.bit"), "--swap",
                  "bytes", "--require-digest"});
    QVERIFY2(verified.code == 0, verified.out);
    QCOMPARE(tool.run({"extract", tool.argument("top.fcf"), "--output", "-"}).out,
             ToolFixture::payload(4000));
}

ZORV_TEST(ContainerTest)
#include "ContainerTest.moc"
