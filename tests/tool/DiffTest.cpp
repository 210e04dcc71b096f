#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QJsonArray>
#include <QtTest>

#include <memory>

/// What diff gives.
class DiffTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_tool = std::make_unique<ToolFixture>(); }
    void findsTwoCopiesTheSame();
    void showsFieldsSideBySide();
    void matchesFunctionsByTheirNames();
    void findsTheFirstByteThatDiffers_data();
    void findsTheFirstByteThatDiffers();
    void comparesCompanions();
    void namesWhateverDiffers_data();
    void namesWhateverDiffers();
    void listsFunctionsInAnotherOrder();
    void leavesOutWhatIsIgnored_data();
    void leavesOutWhatIsIgnored();
    void refusesToIgnoreWhatIsNotThere();
    void takesNothingElseThanFcfFiles();

private:
    /// Makes "NAME.fcf" of a payload, with further options.
    void make(const char* name, const QByteArray& payload, const Arguments& more = {});
    Run diff(const Arguments& more = {})
    {
        return m_tool->run(Arguments{"diff", m_tool->argument("a.fcf"), m_tool->argument("b.fcf")} +
                           more);
    }

    std::unique_ptr<ToolFixture> m_tool;
};

void DiffTest::make(const char* name, const QByteArray& payload, const Arguments& more)
{
    m_tool->write("x.bin", payload);
    const Run run = m_tool->run(Arguments{"create", m_tool->argument("x.bin"), "--output",
                                          m_tool->argument("x.fcf"), "--force"} +
                                ToolFixture::described() + more);
    QVERIFY2(run.code == 0, run.err);
    m_tool->write(QString(name) + ".fcf", m_tool->read("x.fcf"));
    m_tool->write(QString(name) + ".txt", m_tool->read("x.txt"));
}

void DiffTest::findsTwoCopiesTheSame()
{
    make("a", ToolFixture::payload(4000));
    make("b", ToolFixture::payload(4000));
    const Run run = diff();
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out + run.err, QByteArray());
    const QJsonObject json = diff({"--json"}).json();
    QVERIFY(json["same"].toBool());
    QVERIFY(json["payload"].isNull());
    QCOMPARE(json["exitCode"].toInt(-1), 0);
    QCOMPARE(m_tool->run({"diff", m_tool->argument("a.fcf"), m_tool->argument("a.fcf")}).code, 0);
}

void DiffTest::showsFieldsSideBySide()
{
    make("a", ToolFixture::payload(4000));
    m_tool->environment.clock = [] { return QDateTime({2024, 5, 31}, {13, 46, 0}); };
    make("b", ToolFixture::payload(4000));
    const Run run = diff();
    QCOMPARE(run.code, 1);
    QCOMPARE(run.out, QByteArray("time                     \"13:45:00\" | \"13:46:00\"\n"));
    const QJsonObject json = diff({"--json"}).json();
    QCOMPARE(json["exitCode"].toInt(), 1);
    QCOMPARE(json["fields"].toArray(),
             QJsonArray({QJsonObject{{"field", "time"}, {"a", "13:45:00"}, {"b", "13:46:00"}}}));
}

void DiffTest::matchesFunctionsByTheirNames()
{
    make("a", ToolFixture::payload(4000),
         {"--function", "fft", "Bob", "7", "x", "--function", "fir", "Cy", "8", "y"});
    make("b", ToolFixture::payload(4000),
         {"--function", "fir", "Cy", "9", "y", "--function", "%2", "Bob", "7", "x"});
    const Run run = diff();
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("functions[fir].ciNumber  \"8\" | \"9\"\n"), run.out);
    QVERIFY2(run.out.contains("functions[fft]           \"x\" | -\n"), run.out);
    QVERIFY2(run.out.contains("functions[%2]            - | \"x\"\n"), run.out);
    QCOMPARE(run.out.count('\n'), 3);
}

void DiffTest::findsTheFirstByteThatDiffers_data()
{
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<QByteArray>("text");
    QByteArray payload = ToolFixture::payload(4000);
    QTest::newRow("a byte more")
        << payload + 'x'
        << QJsonObject{{"firstOffset", 4000},
                       {"differingBytes", 1},
                       {"bytesA", 4000},
                       {"bytesB", 4001}}
        << QByteArray(
               "4000 bytes | 4001 bytes; 1 differ, the first at offset 4000 of the payload\n");
    payload[100] = static_cast<char>(payload[100] ^ 1);
    payload[3999] = static_cast<char>(payload[3999] ^ 1);
    QTest::newRow("other bytes, and two more")
        << payload + "xy"
        << QJsonObject{{"firstOffset", 100},
                       {"differingBytes", 4},
                       {"bytesA", 4000},
                       {"bytesB", 4002}}
        << QByteArray(
               "4000 bytes | 4002 bytes; 4 differ, the first at offset 100 of the payload\n");
}

void DiffTest::findsTheFirstByteThatDiffers()
{
    QFETCH(QByteArray, other);
    QFETCH(QJsonObject, json);
    QFETCH(QByteArray, text);
    make("a", ToolFixture::payload(4000));
    make("b", other);
    const Run run = diff({"--json"});
    QCOMPARE(run.code, 1);
    QCOMPARE(run.json()["payload"].toObject(), json);
    QVERIFY2(diff().out.contains(text), diff().out);
}

void DiffTest::comparesCompanions()
{
    make("a", ToolFixture::payload(4000));
    make("b", ToolFixture::payload(3996) + "zzzz");
    QCOMPARE(m_tool->run({"diff", m_tool->argument("a.txt"), m_tool->argument("b.txt")}).code, 0);
    QCOMPARE(diff().code, 1);

    const Arguments kinds{"diff", m_tool->argument("a.fcf"), m_tool->argument("b.txt")};
    const Run run = m_tool->run(kinds);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.out, QByteArray("kind                     \"image\" | \"companion\"\n"
                                 "payload                  4000 bytes | 0 bytes; 4000 differ, the "
                                 "first at offset 0 of the payload\n"));
    QCOMPARE(m_tool->run(kinds + Arguments{"--ignore", "kind,payload"}).code, 0);
}

void DiffTest::namesWhateverDiffers_data()
{
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QByteArray>("line");
    ForgedImage image;
    image.reserved[3] = 0xFFFFFF7F;
    QTest::newRow("a reserved word")
        << image.bytes()
        << QByteArray("reserved[3]              \"0xFFFFFFFF\" | \"0xFFFFFF7F\"\n");

    image = ForgedImage();
    QByteArray bytes = image.bytes();
    const int filler = image.preamble().size() + image.lineFeed.size() + image.text.size();
    bytes[filler + 7] = 'x';
    QTest::newRow("the filler")
        << bytes
        << QByteArray(
               "filler                   \"as the generator writes it\" | \"0x78 in place of "
               "0xaf at offset " +
               QByteArray::number(filler + 7) + "\"\n");

    QTest::newRow("padding") << image.bytes() + QByteArray(100, '\xff')
                             << QByteArray(
                                    "padding                  \"0 bytes\" | \"100 bytes\"\n");
    image.numbers[9] = 7;
    QTest::newRow("a version") << image.bytes()
                               << QByteArray("version                  \"1.0\" | \"7.0\"\n"
                                             "versionMajor             1 | 7\n");
}

void DiffTest::namesWhateverDiffers()
{
    QFETCH(QByteArray, other);
    QFETCH(QByteArray, line);
    m_tool->write("a.fcf", ForgedImage().bytes());
    m_tool->write("b.fcf", other);
    const Run run = diff();
    QCOMPARE(run.code, 1);
    QCOMPARE(run.out, line);

    const QByteArray name = line.left(line.indexOf(' ')).split('[').first();
    QCOMPARE(diff({"--ignore", name.toStdString()}).code, 0);
    QVERIFY(!diff({"--json"}).json()["same"].toBool(true));
}

void DiffTest::listsFunctionsInAnotherOrder()
{
    const Arguments fft{"--function", "fft", "Bob", "7", "x"};
    const Arguments fir{"--function", "fir", "Cy", "8", "y"};
    make("a", ToolFixture::payload(4000), fft + fir);
    make("b", ToolFixture::payload(4000), fir + fft);
    const Run run = diff();
    QCOMPARE(run.code, 1);
    QCOMPARE(run.out, QByteArray("functions                \"fft, fir\" | \"fir, fft\"\n"));
}

void DiffTest::leavesOutWhatIsIgnored_data()
{
    QTest::addColumn<QString>("ignored");
    QTest::addColumn<int>("code");
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("all that differs") << "date,time,fileName" << 0 << QStringList();
    QTest::newRow("a part of it") << "date,fileName" << 1 << QStringList("time");
    QTest::newRow("something else") << "author" << 1 << QStringList{"date", "fileName", "time"};
}

void DiffTest::leavesOutWhatIsIgnored()
{
    QFETCH(QString, ignored);
    QFETCH(int, code);
    QFETCH(QStringList, fields);
    ForgedImage image;
    m_tool->write("a.fcf", image.bytes());
    image.text.replace("31 May 2024", "01 June 2025");
    image.text.replace("13:45:00", "13:46:00");
    image.text.replace("top.fcf", "bottom.fcf");
    m_tool->write("b.fcf", image.bytes());

    const Run run = diff({"--ignore", ignored.toStdString(), "--json"});
    QCOMPARE(run.code, code);
    QStringList found;
    for (const auto& field : run.json()["fields"].toArray())
        found << field.toObject()["field"].toString();
    QCOMPARE(found, fields);
}

void DiffTest::refusesToIgnoreWhatIsNotThere()
{
    make("a", ToolFixture::payload(4000));
    make("b", ToolFixture::payload(4000));
    const Run run = diff({"--ignore", "date,tame"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("--ignore: \"tame\" is none of author, "), run.err);
}

void DiffTest::takesNothingElseThanFcfFiles()
{
    make("a", ToolFixture::payload(4000));
    m_tool->write("b.fcf", "bad");
    QCOMPARE(diff().code, 2);
    QCOMPARE(m_tool->run({"diff", m_tool->argument("a.fcf"), m_tool->argument("none")}).code, 3);
}

ZORV_TEST(DiffTest)
#include "DiffTest.moc"
