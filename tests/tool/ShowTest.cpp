#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "support/ReadCount.h"

#include <QJsonArray>
#include <QtTest>

/// What show gives.
class ShowTest : public QObject {
    Q_OBJECT

private slots:
    void listsAHeaderForPeople();
    void listsAHeaderForPrograms();
    void listsSeveralFilesAndGoesOnAfterABadOne();
    void readsFromStandardInput();
    void neverReadsThePayload();
    void showsOneFieldAlone_data();
    void showsOneFieldAlone();
    void refusesAFieldThatIsNotThere();
    void checksWhatItShows();
    void listsAnUnknownTarget();
    void showsAByteThatIsNoTextAsAnEscape();
    void letsNoTextAtTheTerminal();
    void showsLittleOfWhatIsNoText();
};

void ShowTest::listsAHeaderForPeople()
{
    ToolFixture tool;
    ForgedImage image;
    image.text.replace("Rev B", "Rev B\n\nsecond");
    tool.write("top.fcf", image.bytes());
    const Run run = tool.run({"show", tool.argument("top.fcf")});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err, QByteArray());
    const QByteArray expected = tool.path("top.fcf").toUtf8() +
                                ": header page of 2112 bytes\n"
                                "  target         DFE, Interface_FPGA, flash slot 1\n"
                                "  version        1.0\n"
                                "  totalPages     3 pages\n"
                                "  totalBlocks    0 blocks\n"
                                "  totalSize      6112 bytes (5.97 KiB)\n"
                                "  binPages       2 pages\n"
                                "  binBlocks      0 blocks\n"
                                "  binFileSize    4000 bytes (3.91 KiB)\n"
                                "  moduleCode     1\n"
                                "  deviceCode     1\n"
                                "  fileName       top.fcf\n"
                                "  ciNumber       42\n"
                                "  author         Ann\n"
                                "  date           31 May 2024\n"
                                "  time           13:45:00\n"
                                "  description    Rev B\n"
                                "\n"
                                "                 second\n"
                                "  functions      1\n"
                                "  -\n"
                                "    name           fft\n"
                                "    author         Bob\n"
                                "    ciNumber       7\n"
                                "    description    Spectrum\n";
    QByteArray found = run.out;
    found.replace(QByteArray::number(image.page().size()) + " bytes\n", "2112 bytes\n");
    QCOMPARE(found, expected);
}

void ShowTest::listsAHeaderForPrograms()
{
    ToolFixture tool;
    const ForgedImage image;
    tool.write("top.txt", image.page());
    const QJsonObject json = tool.run({"show", tool.argument("top.txt"), "--json"}).json();
    QCOMPARE(json["schema"].toInt(), 2);
    QCOMPARE(json["command"].toString(), QString("show"));
    const QJsonObject file = json["files"].toArray()[0].toObject();
    QCOMPARE(file["headerBytes"].toInt(), image.page().size());
    const QJsonObject expected{
        {"totalPages", 3},
        {"totalBlocks", 0},
        {"totalSize", 6112},
        {"binPages", 2},
        {"binBlocks", 0},
        {"binFileSize", 4000},
        {"moduleCode", 1},
        {"deviceCode", 1},
        {"module", "DFE"},
        {"device", "Interface_FPGA"},
        {"configNumber", 1},
        {"version", "1.0"},
        {"versionMajor", 1},
        {"versionMinor", 0},
        {"fileName", "top.fcf"},
        {"ciNumber", "42"},
        {"author", "Ann"},
        {"date", "31 May 2024"},
        {"time", "13:45:00"},
        {"description", "Rev B"},
        {"functions",
         QJsonArray{QJsonObject{
             {"name", "fft"}, {"author", "Bob"}, {"ciNumber", "7"}, {"description", "Spectrum"}}}}};
    QCOMPARE(file["header"].toObject(), expected);
}

void ShowTest::listsSeveralFilesAndGoesOnAfterABadOne()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("bad.fcf", "bad");
    const Run run = tool.run({"show", tool.argument("bad.fcf"), tool.argument("top.fcf"),
                              tool.argument("none.fcf"), tool.argument("top.txt")});
    QCOMPARE(run.code, 3);
    QCOMPARE(run.out.count(": header page of "), 2);
    QCOMPARE(run.err.count('\n'), 2);
    QVERIFY2(run.err.contains(
                 "bad.fcf: text at offset 3: is no FCF header page: it ends before the text"),
             run.err);
    QCOMPARE(tool.run({"show", tool.argument("bad.fcf")}).code, 1);
}

void ShowTest::readsFromStandardInput()
{
    ToolFixture tool;
    tool.makeImage();
    tool.in = tool.read("top.fcf");
    QVERIFY(tool.run({"show", "-"}).out.startsWith("standard input: header page of "));
}

void ShowTest::neverReadsThePayload()
{
    ToolFixture tool;
    tool.makeImage();
    const qint64 before = bytesReadSoFar();
    QCOMPARE(tool.run({"show", tool.argument("top.fcf")}).code, 0);
    const qint64 bytes = bytesReadSoFar() - before;
    // The page, and the numbers at its start once more to see that the file can be read.
    QVERIFY2(bytes >= 2112 && bytes <= 2112 + 64 + CountingBytes,
             qPrintable(QString::number(bytes)));
}

void ShowTest::showsOneFieldAlone_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("a version") << "version" << QByteArray("1.0\n");
    QTest::newRow("a number") << "binFileSize" << QByteArray("4000\n");
    QTest::newRow("a target") << "device" << QByteArray("Interface_FPGA\n");
    QTest::newRow("a text") << "author" << QByteArray("Ann\n");
    QTest::newRow("functions") << "functions"
                               << QByteArray("[{\"author\":\"Bob\",\"ciNumber\":\"7\","
                                             "\"description\":\"x\",\"name\":\"fft\"}]\n");
}

void ShowTest::showsOneFieldAlone()
{
    QFETCH(QString, field);
    QFETCH(QByteArray, shown);
    ToolFixture tool;
    QCOMPARE(tool.createTop({"--function", "fft", "Bob", "7", "x"}).code, 0);
    const Arguments show{"show", tool.argument("top.fcf"), "--field", field.toStdString()};
    QCOMPARE(tool.run(show).out, shown);
    const QJsonObject header =
        tool.run(show + Arguments{"--json"}).firstFile()["header"].toObject();
    QCOMPARE(header.keys(), QStringList(field));
}

void ShowTest::refusesAFieldThatIsNotThere()
{
    ToolFixture tool;
    tool.makeImage();
    const Run run = tool.run({"show", tool.argument("top.fcf"), "--field", "autor"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("--field: \"autor\" is none of author, "), run.err);
}

void ShowTest::checksWhatItShows()
{
    ToolFixture tool;
    ForgedImage image;
    tool.write("a.fcf", image.bytes());
    const Arguments show{"show", tool.argument("a.fcf"), "--check"};
    QCOMPARE(tool.run(show).code, 0);
    image.numbers[8] = 11;
    tool.write("a.fcf", image.bytes());
    QCOMPARE(tool.run({"show", tool.argument("a.fcf")}).code, 0);
    const Run run = tool.run(show);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("a.fcf: not valid; pelk-fcf verify reports all of it\n"), run.out);
    QVERIFY(!tool.run(show + Arguments{"--json"}).firstFile()["valid"].toBool(true));
}

void ShowTest::listsAnUnknownTarget()
{
    ToolFixture tool;
    ForgedImage image;
    image.numbers[6] = 5;
    tool.write("top.fcf", image.bytes());
    const Run run = tool.run({"show", tool.argument("top.fcf")});
    QCOMPARE(run.code, 0);
    QVERIFY(run.out.contains("  target         unknown, flash slot 1\n"));
}

void ShowTest::showsAByteThatIsNoTextAsAnEscape()
{
    ToolFixture tool;
    ForgedImage image;
    image.text.replace("Ann", "A\xff\xc3n");
    tool.write("top.fcf", image.bytes());
    const std::string path = tool.argument("top.fcf");
    Run run = tool.run({"show", path});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.contains("  author         A\\xff\\xc3n\n"), run.out);
    QVERIFY2(run.out.contains("    description    Spectrum\n"), run.out);
    QVERIFY2(run.out.contains(": header page of " + QByteArray::number(image.page().size()) + ' '),
             run.out);
    QVERIFY2(run.err.startsWith("pelk-fcf: warning: ") && run.err.contains("author at offset"),
             run.err);
    QCOMPARE(tool.run({"show", path, "--field", "author"}).out, QByteArray("A\\xff\\xc3n\n"));
    run = tool.run({"show", path, "--check", "--json"});
    QCOMPARE(run.code, 1);
    QVERIFY(!run.firstFile()["valid"].toBool(true));
    QCOMPARE(tool.run({"verify", path}).code, 1);
}

void ShowTest::letsNoTextAtTheTerminal()
{
    ToolFixture tool;
    ForgedImage image;
    image.text.replace("Ann", "\x1b[2J\u202eAnn");
    tool.write("top.fcf", image.bytes());
    const Run run = tool.run({"show", tool.argument("top.fcf")});
    QVERIFY(run.out.contains("  author         \\u001b[2J\\u202eAnn\n"));
}

void ShowTest::showsLittleOfWhatIsNoText()
{
    ToolFixture tool;
    QByteArray noise = ForgedImage().preamble() + '\n';
    while (noise.size() < 30000)
        noise += QByteArray::fromHex("ffe280a8417f");
    tool.write("noise.fcf", noise);
    tool.write("long.fcf", ForgedImage().preamble() + "\nFilename: a\nCI No: " +
                               QByteArray(20000, 'x') + "\nAuthor? Ann\n");
    for (const char* const name : {"noise.fcf", "long.fcf"}) {
        const Run run = tool.run({"show", tool.argument(name), "--json"});
        QCOMPARE(run.code, 1);
        const QString found = run.json()["findings"].toArray()[0].toObject()["found"].toString();
        QVERIFY2(!found.isEmpty() && found.size() < 500, qPrintable(found));
        for (const QChar character : found)
            QVERIFY2(character.unicode() >= ' ' && character.unicode() < 0x7f, qPrintable(found));
        QVERIFY(run.err.size() < 1000);
    }
}

ZORV_TEST(ShowTest)
#include "ShowTest.moc"
