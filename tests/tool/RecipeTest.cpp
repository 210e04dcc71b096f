#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "support/ReadCount.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include <cstring>

/// What recipe gives, and what its check finds.
class RecipeTest : public QObject {
    Q_OBJECT

private slots:
    void writesARecipe();
    void neverReadsThePayload();
    void givesNoRecipeOfADamagedImage_data();
    void givesNoRecipeOfADamagedImage();
    void takesRecipesOfImagesOfOtherNames();
    void keepsAByteOrderMarkInARecipe();
    void checksARecipeAsCreateDoes_data();
    void checksARecipeAsCreateDoes();
    void notesWhatARecipeLeavesOpen();
};

void RecipeTest::writesARecipe()
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
}

void RecipeTest::neverReadsThePayload()
{
    ToolFixture tool;
    tool.makeImage();
    const qint64 before = bytesReadSoFar();
    QCOMPARE(tool.run({"recipe", tool.argument("top.fcf")}).code, 0);
    const qint64 bytes = bytesReadSoFar() - before;
    // The page, and all of it once more for the check.
    QVERIFY2(bytes >= 2112 && bytes <= 2 * (2112 + 64) + CountingBytes,
             qPrintable(QString::number(bytes)));
}

void RecipeTest::givesNoRecipeOfADamagedImage_data()
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

void RecipeTest::givesNoRecipeOfADamagedImage()
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

void RecipeTest::takesRecipesOfImagesOfOtherNames()
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

void RecipeTest::keepsAByteOrderMarkInARecipe()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const std::string mark = "\xef\xbb\xbf";
    QCOMPARE(tool.create("top.bin", {}, {{"--author", mark + "Ann"}, {"--ci", mark}}).code, 0);
    const QByteArray image = tool.read("top.fcf");
    tool.write("top.json", tool.run({"recipe", tool.argument("top.fcf")}).out);
    const Run again = tool.run(
        {"create", tool.argument("top.bin"), "--like", tool.argument("top.json"), "--force"});
    QVERIFY2(again.code == 0, again.err);
    QCOMPARE(tool.read("top.fcf"), image);
}

void RecipeTest::checksARecipeAsCreateDoes_data()
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

void RecipeTest::checksARecipeAsCreateDoes()
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

void RecipeTest::notesWhatARecipeLeavesOpen()
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

ZORV_TEST(RecipeTest)
#include "RecipeTest.moc"
