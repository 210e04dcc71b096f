#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QDir>
#include <QtTest>

/// The files that create makes.
class CreateTest : public QObject {
    Q_OBJECT

private slots:
    void writesEveryByteAsTheFormatSays();
    void reportsWhatItWrote();
    void writesADigest();
    void leavesOutTheCompanion();
    void replacesEveryBinInTheNameAlone();
    void takesTheBinaryFromStandardInput();
    void writesTheImageToStandardOutput();
    void fillsThePageToTheByte();
    void reportsByHowMuchAHeaderIsTooLong();
    void namesFunctionsAmongTheLargestFields();
    void warnsOfNothingElseWhenTheDescriptionIsTooLong();
    void reportsAllErrorsTogether();
};

void CreateTest::writesEveryByteAsTheFormatSays()
{
    ToolFixture tool;
    const Run run = tool.createTop({"--function", "fft", "Bob", "7", "Spectrum", "--date-time",
                                    "2024-05-31T13:45:00", "--date-format", "iso"});
    QCOMPARE(run.err, QByteArray());
    QCOMPARE(run.code, 0);
    ForgedImage expected;
    expected.text.replace("31 May 2024", "2024-05-31");
    QCOMPARE(tool.read("top.fcf"), expected.bytes());
    QCOMPARE(tool.read("top.txt"), expected.page());
}

void CreateTest::reportsWhatItWrote()
{
    ToolFixture tool;
    const Run run = tool.createTop({"--digest"});
    const QByteArray image = tool.path("top.fcf").toUtf8();
    QCOMPARE(run.out, image + '\n' + tool.path("top.txt").toUtf8() + '\n' + image + ".sha256\n");
    const QJsonObject json = tool.createTop({"--digest", "--force", "--json"}).json();
    QCOMPARE(json["schema"].toInt(), 2);
    QCOMPARE(json["command"].toString(), QString("create"));
    QCOMPARE(json["exitCode"].toInt(-1), 0);
    QCOMPARE(json["image"].toString(), tool.path("top.fcf"));
    QCOMPARE(json["companion"].toString(), tool.path("top.txt"));
    QCOMPARE(json["header"].toObject()["binFileSize"].toInt(), 4000);
}

void CreateTest::writesADigest()
{
    ToolFixture tool;
    QCOMPARE(tool.createTop({"--digest"}).code, 0);
    const QByteArray digest = sha256Of(tool.read("top.fcf"));
    QCOMPARE(tool.read("top.fcf.sha256"), digest + "  top.fcf\n");

    // JSON has it even where no file has.
    const QJsonObject json =
        tool.createTop({"--output", tool.argument("other.fcf"), "--json"}).json();
    QCOMPARE(json["sha256"].toString().toLatin1(), sha256Of(tool.read("other.fcf")));
    QVERIFY(!tool.exists("other.fcf.sha256"));
}

void CreateTest::leavesOutTheCompanion()
{
    ToolFixture tool;
    QCOMPARE(tool.createTop({"--no-companion"}).code, 0);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf"}));
}

void CreateTest::replacesEveryBinInTheNameAlone()
{
    ToolFixture tool;
    QVERIFY(QDir().mkdir(tool.path("old.bin")));
    tool.write("old.bin/a.bin.bin", ToolFixture::payload(100));
    QCOMPARE(tool.create("old.bin/a.bin.bin").code, 0);
    QVERIFY(tool.exists("old.bin/a.fcf.fcf"));
    QVERIFY(tool.exists("old.bin/a.txt.txt"));
}

void CreateTest::takesTheBinaryFromStandardInput()
{
    ToolFixture tool;
    tool.createTop();
    const QByteArray image = tool.read("top.fcf");
    tool.in = ToolFixture::payload(4000);
    const Run run =
        tool.run(Arguments{"create", "-", "--output", tool.argument("top.fcf"), "--force"} +
                 ToolFixture::described());
    QCOMPARE(run.code, 0);
    QCOMPARE(tool.read("top.fcf"), image);
}

void CreateTest::writesTheImageToStandardOutput()
{
    ToolFixture tool;
    tool.createTop();
    const Run run = tool.createTop({"--output", "-", "--no-companion"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, tool.read("top.fcf"));
}

void CreateTest::fillsThePageToTheByte()
{
    ToolFixture tool;
    tool.createTop();
    const int used = tool.read("top.txt").indexOf("----\n") + 5;
    const struct {
        int textEnd;
        int pageBytes;
    } pages[] = {{2112, 2112}, {2111, 2117}, {2106, 2112}, {2107, 2113}};
    for (const auto& page : pages) {
        const auto more = static_cast<std::size_t>(page.textEnd - used);
        const Options description{{"--description", "Rev B" + std::string(more, 'x')}};
        QCOMPARE(tool.create("top.bin", {"--force"}, description).code, 0);
        QCOMPARE(tool.read("top.txt").size(), page.pageBytes);
        QCOMPARE(tool.read("top.fcf").size(), page.pageBytes + 4000);
        QCOMPARE(tool.run({"verify", tool.argument("top.fcf")}).code, 0);
    }
}

void CreateTest::reportsByHowMuchAHeaderIsTooLong()
{
    ToolFixture tool;
    tool.makeImage();
    const int used = tool.read("top.txt").indexOf("----\n") + 5;
    const QByteArray before = tool.read("top.fcf");
    // A letter has two bytes.
    const int letters = (2112 - used) / 2 + 1;
    const int excess = used + 2 * letters - 2112;
    const std::string text = "Rev B" + QString(letters, QChar(0xe4)).toStdString();
    const Run run = tool.create("top.bin", {"--force"}, {{"--description", text}});
    QCOMPARE(run.code, 2);
    // Labels and line feeds included.
    const int description = 14 + 5 + 2 * letters;
    const QByteArray message =
        "the header is too long by " + QByteArray::number(excess) + " bytes: of its " +
        QByteArray::number(2112 + excess) + ", labels included, description has " +
        QByteArray::number(description) + ", fileName has 18, date has 18 and the rest " +
        QByteArray::number(2112 + excess - description - 18 - 18) + "\n";
    QVERIFY2(run.err.contains(message), run.err);
    QCOMPARE(tool.read("top.fcf"), before);
}

void CreateTest::namesFunctionsAmongTheLargestFields()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Arguments functions;
    for (int index = 0; index < 30; ++index)
        functions = functions + Arguments{"--function", "12345", "12345", "12345", "12345"};
    const Run run = tool.create("top.bin", functions);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("labels included, functions has 2940, description has 19, fileName "
                              "has 18 and the rest 129\n"),
             run.err);
}

void CreateTest::warnsOfNothingElseWhenTheDescriptionIsTooLong()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write("notes", QByteArray(60000, 'x'));
    const Run run = tool.create("top.bin", {"--function", "a", "b", "c", "d"},
                                {{"--description", "@" + tool.argument("notes")}});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("too long by") && !run.err.contains("warning: "), run.err);
}

void CreateTest::reportsAllErrorsTogether()
{
    ToolFixture tool;
    tool.write("empty.bin", QByteArray());
    tool.write("empty.fcf", "old");
    const Run run = tool.run({"create", tool.argument("empty.bin"), "--version", "1", "--author",
                              " ", "--config", "11", "--module", "GPM"});
    QCOMPARE(run.code, 2);
    for (const char* const message :
         {"--version: \"1\" is not two numbers", "author: is blank: give --author",
          "ciNumber: is missing: give --ci", "device: is missing: give --device",
          "configNumber: 11 is no slot", "binFileSize: the binary is empty",
          "--output: exists already"})
        QVERIFY2(run.err.contains(message), run.err);
    // What was refused is not missing as well.
    QVERIFY2(!run.err.contains("version: is missing"), run.err);
}

ZORV_TEST(CreateTest)
#include "CreateTest.moc"
