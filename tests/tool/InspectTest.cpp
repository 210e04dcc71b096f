#include "ToolFixture.h"

#include "support/ReadCount.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

/// What show, recipe and extract give.
class InspectTest : public QObject {
    Q_OBJECT

private slots:
    void listsAHeaderForPeople();
    void listsAHeaderForPrograms();
    void listsSeveralFilesAndGoesOnAfterABadOne();
    void listsAnUnknownTarget();
    void showsAByteThatIsNoTextAsAnEscape();
    void showsAllThatCreateTakes();
    void letsNoTextAtTheTerminal();
    void neverReadsThePayload();
    void readsFromStandardInput();
    void givesEveryResultWhenQuiet();
    void showsLittleOfWhatIsNoText();
    void writesARecipe();
    void givesNoRecipeOfADamagedImage_data();
    void givesNoRecipeOfADamagedImage();
    void takesRecipesOfImagesOfOtherNames();
    void checksARecipeAsCreateDoes_data();
    void checksARecipeAsCreateDoes();
    void notesWhatARecipeLeavesOpen();
    void extractsThePayload();
    void printsNoControlCharacterOfAPath();
    void extractsNothingFromABadImage();
    void guardsTheOutputOfAnExtraction();
    void printsHelpAndVersion();
    void takesShortNamesOfOptions();
    void keepsAByteOrderMarkInARecipe();
    void leavesNotesOutOfJsonWhenItIsToBeQuiet();
};

void InspectTest::listsAHeaderForPeople()
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

void InspectTest::listsAHeaderForPrograms()
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

void InspectTest::listsSeveralFilesAndGoesOnAfterABadOne()
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

void InspectTest::listsAnUnknownTarget()
{
    ToolFixture tool;
    ForgedImage image;
    image.numbers[6] = 5;
    tool.write("top.fcf", image.bytes());
    const Run run = tool.run({"show", tool.argument("top.fcf")});
    QCOMPARE(run.code, 0);
    QVERIFY(run.out.contains("  target         unknown, flash slot 1\n"));
}

void InspectTest::showsAByteThatIsNoTextAsAnEscape()
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
    QVERIFY(!run.json()["files"].toArray()[0].toObject()["valid"].toBool(true));
    QCOMPARE(tool.run({"verify", path}).code, 1);
}

void InspectTest::showsAllThatCreateTakes()
{
    const QByteArray help = ToolFixture().run({"create", "--help"}).out;
    for (const char* const part :
         {"Required, unless --like gives it:\n  --author", "(default: locale)",
          "DFE2: Processing_FPGA\n", "GPM: Interface_FPGA, Processing_FPGA_1",
          "(default: BIN with .fcf in place of .bin)"})
        QVERIFY2(help.contains(part), part);
    QCOMPARE(help.count("Exit codes:"), 1);
    QVERIFY(help.endsWith('\n'));
}

void InspectTest::letsNoTextAtTheTerminal()
{
    ToolFixture tool;
    ForgedImage image;
    image.text.replace("Ann", "\x1b[2J\u202eAnn");
    tool.write("top.fcf", image.bytes());
    const Run run = tool.run({"show", tool.argument("top.fcf")});
    QVERIFY(run.out.contains("  author         \\u001b[2J\\u202eAnn\n"));
}

void InspectTest::neverReadsThePayload()
{
    ToolFixture tool;
    tool.makeImage();
    const auto bytesReadBy = [&tool](const char* command) {
        const qint64 before = bytesReadSoFar();
        const int code = tool.run({command, tool.argument("top.fcf")}).code;
        return code == 0 ? bytesReadSoFar() - before : -1;
    };
    // The page, and the numbers at its start once more to see that the file can be read.
    const qint64 shown = bytesReadBy("show");
    QVERIFY2(shown >= 2112 && shown <= 2112 + 64 + CountingBytes,
             qPrintable(QString::number(shown)));
    // The same, and its text and filler once more for the check.
    const qint64 taken = bytesReadBy("recipe");
    QVERIFY2(taken >= 2112 && taken <= 2 * (2112 + 64) + CountingBytes,
             qPrintable(QString::number(taken)));
}

void InspectTest::readsFromStandardInput()
{
    ToolFixture tool;
    tool.makeImage();
    tool.in = tool.read("top.fcf");
    QVERIFY(tool.run({"show", "-"}).out.startsWith("standard input: header page of "));
    QCOMPARE(tool.run({"recipe", "-"}).code, 0);
    QCOMPARE(tool.run({"extract", "-", "--output", "-"}).out, tool.read("top.bin"));
}

void InspectTest::givesEveryResultWhenQuiet()
{
    ToolFixture tool;
    tool.makeImage();
    const std::string image = tool.argument("top.fcf");
    for (const Arguments& arguments :
         {Arguments{"show", image}, Arguments{"recipe", image},
          Arguments{"extract", image, "--force", "--output", tool.argument("out.bin")}}) {
        const Run loud = tool.run(arguments);
        QVERIFY(!loud.out.isEmpty());
        QCOMPARE(tool.run(arguments + Arguments{"--quiet"}).out, loud.out);
    }
}

void InspectTest::showsLittleOfWhatIsNoText()
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

void InspectTest::writesARecipe()
{
    ToolFixture tool;
    tool.write("top.fcf", ForgedImage().bytes());
    const QJsonObject expected{
        {"recipe", 2},
        {"author", "Ann"},
        {"ciNumber", "42"},
        {"module", "DFE"},
        {"device", "Interface_FPGA"},
        {"configNumber", 1},
        {"version", "1.0"},
        {"description", "Rev B"},
        {"functions",
         QJsonArray{QJsonObject{
             {"name", "fft"}, {"author", "Bob"}, {"ciNumber", "7"}, {"description", "Spectrum"}}}}};
    QCOMPARE(tool.run({"recipe", tool.argument("top.fcf")}).json(), expected);
    const QJsonObject json = tool.run({"recipe", tool.argument("top.fcf"), "--json"}).json();
    QCOMPARE(json["recipe"].toObject(), expected);
    QCOMPARE(json["schema"].toInt(), 2);
    QCOMPARE(json["command"].toString(), QString("recipe"));
    QCOMPARE(json["exitCode"].toInt(-1), 0);
    QVERIFY(json["findings"].isArray());
    // Wrong usage has the same shape.
    const QJsonObject refused = tool.run({"recipe", "--json", "--nonsense"}).json();
    QCOMPARE(refused["command"].toString(), QString("recipe"));
    QCOMPARE(refused["exitCode"].toInt(), 2);
}

void InspectTest::givesNoRecipeOfADamagedImage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("field");
    ForgedImage image;
    image.numbers[7] = 16;
    QTest::newRow("an unknown device") << image.bytes() << "deviceCode";
    image = ForgedImage();
    image.numbers[8] = 11;
    QTest::newRow("a slot that does not exist") << image.bytes() << "configNumber";
    image = ForgedImage();
    image.numbers[9] = -1;
    QTest::newRow("a negative version") << image.bytes() << "versionMajor";
    image = ForgedImage();
    image.reserved[2] = 7;
    QTest::newRow("a reserved word") << image.bytes() << "reserved[2]";
    QTest::newRow("a payload that is cut") << ForgedImage().bytes().chopped(1) << "payload";
    QTest::newRow("a header alone") << ForgedImage().page() << "payload";
}

void InspectTest::givesNoRecipeOfADamagedImage()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, field);
    ToolFixture tool;
    tool.write("damaged.fcf", bytes);
    const std::string damaged = tool.argument("damaged.fcf");
    for (const Arguments& form : {Arguments(), Arguments{"--json"}}) {
        const Run run = tool.run(Arguments{"recipe", damaged} + form);
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.contains("damaged.fcf: " + field.toUtf8()), run.err);
        QVERIFY(!run.out.contains("\"recipe\": 2"));
    }

    // A build that is like it is made, with a warning, as far as it can be.
    tool.write("top.bin", ToolFixture::payload(4000));
    const Arguments create{"create", tool.argument("top.bin"), "--like", damaged};
    const Arguments mended =
        create + Arguments{"--device", "Interface_FPGA", "--config", "1", "--version", "1.0"};
    const Run strict = tool.run(mended + Arguments{"--strict"});
    QCOMPARE(strict.code, 2);
    QVERIFY(!tool.exists("top.fcf"));
    const Run run = tool.run(mended + Arguments{"--module", "DFE"});
    QVERIFY2(run.code == 0, run.err);
    QVERIFY2(run.err.contains("warning: " + QByteArray::fromStdString(damaged) +
                              ": --like: is not valid, " + field.toUtf8()),
             run.err);
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf")}).code, 0);
}

void InspectTest::takesRecipesOfImagesOfOtherNames()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("slot1", tool.read("top.fcf") + QByteArray(100, '\xff'));
    tool.write("page", tool.read("top.txt"));
    const QByteArray recipe = tool.run({"recipe", tool.argument("top.fcf")}).out;
    QVERIFY(recipe.contains("\"recipe\": 2"));
    for (const char* const name : {"slot1", "page", "top.txt"}) {
        const Run run = tool.run({"recipe", tool.argument(name)});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.out, recipe);
        QCOMPARE(run.err, QByteArray());
    }
}

void InspectTest::checksARecipeAsCreateDoes_data()
{
    QTest::addColumn<QJsonObject>("members");
    QTest::addColumn<QStringList>("fields");
    const auto function = [](const QString& name, const QString& description) {
        return QJsonArray{QJsonObject{
            {"name", name}, {"author", "Bob"}, {"ciNumber", "7"}, {"description", description}}};
    };
    QTest::newRow("nothing") << QJsonObject() << QStringList();
    QTest::newRow("a module") << QJsonObject{{"module", "DFE3"}} << QStringList("module");
    QTest::newRow("a device of another module")
        << QJsonObject{{"device", "Processing_FPGA_2"}} << QStringList("device");
    QTest::newRow("a slot and a version") << QJsonObject{{"configNumber", 11}, {"version", "-1.2"}}
                                          << QStringList{"configNumber", "version"};
    QTest::newRow("a blank author") << QJsonObject{{"author", " "}} << QStringList("author");
    QTest::newRow("a line break") << QJsonObject{{"ciNumber", "4\n2"}} << QStringList("ciNumber");
    QTest::newRow("a long text") << QJsonObject{{"description", QString(2100, 'x')}}
                                 << QStringList("text");
    QTest::newRow("a function without a name")
        << QJsonObject{{"functions", function("", "Spectrum")}} << QStringList("functions[0].name");
    QTest::newRow("a text that the window cuts")
        << QJsonObject{{"functions", function("fft", "a: b: c")}}
        << QStringList("functions[0].description");
    QTest::newRow("a version that is none")
        << QJsonObject{{"version", "1"}} << QStringList("version");
    QTest::newRow("a description file that is not there")
        << QJsonObject{{"descriptionFile", "none"}} << QStringList("descriptionFile");
}

void InspectTest::checksARecipeAsCreateDoes()
{
    QFETCH(QJsonObject, members);
    QFETCH(QStringList, fields);
    QJsonObject recipe{{"recipe", 2},
                       {"author", "Ann"},
                       {"ciNumber", "42"},
                       {"module", "DFE"},
                       {"device", "Interface_FPGA"},
                       {"configNumber", 3},
                       {"version", "1.12"}};
    for (auto member = members.begin(); member != members.end(); ++member)
        recipe[member.key()] = member.value();

    ToolFixture tool;
    tool.write("top.json", QJsonDocument(recipe).toJson());
    tool.write("top.bin", ToolFixture::payload(4000));
    const std::string file = tool.argument("top.json");
    const Run checked = tool.run({"recipe", "--check", file, "--json", "--quiet"});
    QStringList found;
    for (const auto& finding : checked.json()["findings"].toArray())
        found << finding.toObject()["field"].toString();
    found.sort();
    QCOMPARE(found, fields);

    const Run made = tool.run({"create", tool.argument("top.bin"), "--like", file, "--json"});
    QCOMPARE(checked.code, made.code);
    QCOMPARE(checked.json().contains("recipe"), made.code == 0);
    for (const QString& field : fields)
        QVERIFY2(!made.finding(field).isEmpty(), made.out);
}

void InspectTest::notesWhatARecipeLeavesOpen()
{
    ToolFixture tool;
    tool.in = "{\"recipe\": 2, \"author\": \"Ann\", \"device\": \"Interface_FPGA\"}";
    const Run run = tool.run({"recipe", "--check", "-"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, QByteArray("standard input: valid\n"));
    for (const char* const open : {"ciNumber: is not given: create needs --ci\n",
                                   "module: is not given: create needs --module\n",
                                   "configNumber: is not given: create needs --config\n",
                                   "version: is not given: create needs --version\n"})
        QVERIFY2(run.err.contains(QByteArray("note: standard input: ") + open), run.err);
    QVERIFY2(!run.err.contains("author: is") && !run.err.contains("device: is"), run.err);

    // An image shows what the header has without name, date and time.
    tool.makeImage();
    const QByteArray page = tool.read("top.txt");
    const int used = page.indexOf("\n----\n") + 6;
    const int known = static_cast<int>(strlen("top.fcf"));
    const QByteArray text = page.mid(64);
    const auto lengthOf = [&](const QByteArray& label) {
        const int start = text.indexOf(label) + label.size();
        return text.indexOf('\n', start) - start;
    };
    const int room = 2112 - used + known + lengthOf("\nDate: ") + lengthOf("\nTime: ");
    tool.write("top.json", tool.run({"recipe", tool.argument("top.fcf")}).out);
    const Run whole = tool.run({"recipe", "--check", tool.argument("top.json")});
    QVERIFY2(whole.err.contains("room for " + QByteArray::number(room) + " bytes"), whole.err);
    QCOMPARE(whole.err.count('\n'), 1);
}

void InspectTest::extractsThePayload()
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

void InspectTest::printsNoControlCharacterOfAPath()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const QString folder = "a\x1b[2J\tb";
    QVERIFY(QDir(tool.path("")).mkdir(folder));
    const QByteArray shown = tool.path("a\\u001b[2J\\u0009b/top").toUtf8();
    const Arguments create = Arguments{"create", tool.argument("top.bin"), "--output",
                                       tool.argument(folder + "/top.fcf"), "--digest"} +
                             ToolFixture::described();
    Run run = tool.run(create);
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, shown + ".fcf\n" + shown + ".txt\n" + shown + ".fcf.sha256\n");
    run = tool.run(create + Arguments{"--if-changed"});
    QCOMPARE(run.out, shown + ".fcf: unchanged\n" + shown + ".txt: unchanged\n" + shown +
                          ".fcf.sha256: unchanged\n");
    run = tool.run({"extract", tool.argument(folder + "/top.fcf"), "--output",
                    tool.argument(folder + "/top.bin")});
    QCOMPARE(run.out, shown + ".bin\n");
    QCOMPARE(tool.read(folder + "/top.bin"), tool.read("top.bin"));
}

void InspectTest::extractsNothingFromABadImage()
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

void InspectTest::guardsTheOutputOfAnExtraction()
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

void InspectTest::printsHelpAndVersion()
{
    ToolFixture tool;
    for (const Arguments& arguments :
         {Arguments{"--help"}, Arguments{"create", "--help"}, Arguments{"verify", "--help"}}) {
        const Run run = tool.run(arguments);
        QCOMPARE(run.code, 0);
        QVERIFY(run.out.contains("Usage: pelk-fcf") && run.out.contains("Exit codes: 0 done"));
        QCOMPARE(run.err, QByteArray());
    }
    QVERIFY(tool.run({"--version"}).out.startsWith("pelk-fcf 2."));
    QCOMPARE(tool.run({"-v"}).out, tool.run({"--version"}).out);
    QCOMPARE(tool.run({"help"}).out, tool.run({"--help"}).out);
    QCOMPARE(tool.run({"help", "verify"}).out, tool.run({"verify", "--help"}).out);
    QCOMPARE(tool.run({"help", "nothing"}).code, 2);
}

void InspectTest::takesShortNamesOfOptions()
{
    ToolFixture tool;
    tool.makeImage();
    const Arguments extract{"extract", tool.argument("top.fcf"), "-o", tool.argument("out")};
    QCOMPARE(tool.run(extract).code, 0);
    QCOMPARE(tool.run(extract).code, 4);
    QCOMPARE(tool.run(extract + Arguments{"-f", "-q"}).code, 0);
    QCOMPARE(tool.run({"extract", tool.argument("top.fcf"), "-o", "-f"}).code, 2);
}

void InspectTest::keepsAByteOrderMarkInARecipe()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Arguments described = ToolFixture::described();
    described[1] = "\xef\xbb\xbf"
                   "Ann";
    described[3] = "\xef\xbb\xbf";
    QCOMPARE(tool.run(Arguments{"create", tool.argument("top.bin")} + described).code, 0);
    const QByteArray image = tool.read("top.fcf");
    tool.write("top.json", tool.run({"recipe", tool.argument("top.fcf")}).out);
    const Run again = tool.run(
        {"create", tool.argument("top.bin"), "--like", tool.argument("top.json"), "--force"});
    QVERIFY2(again.code == 0, again.err);
    QCOMPARE(tool.read("top.fcf"), image);
}

void InspectTest::leavesNotesOutOfJsonWhenItIsToBeQuiet()
{
    ToolFixture tool;
    tool.makeImage();
    const Arguments arguments{"verify", tool.argument("top.fcf"), "--json"};
    QVERIFY(!tool.run(arguments).json()["findings"].toArray().isEmpty());
    QVERIFY(tool.run(arguments + Arguments{"--quiet"}).json()["findings"].toArray().isEmpty());
}

QTEST_GUILESS_MAIN(InspectTest)
#include "InspectTest.moc"
