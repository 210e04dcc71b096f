#include "CreatingTest.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QTextCodec>
#include <QtTest>

#include <unistd.h>

/// What create makes.
class CreateTest : public CreatingTest {
    Q_OBJECT

private slots:
    void writesEveryByteAsTheFormatSays();
    void reportsWhatItWrote();
    void takesTheLocalesDateUnlessToldOtherwise();
    void stampsWithSourceDateEpochInUtc();
    void prefersAGivenDateAndTime();
    void takesTheSlotUnderAHiddenNameToo();
    void givesEqualBytesTwice();
    void takesADescriptionFromAFile();
    void takesAnAtSignAtTheStartOfADescription();
    void takesAnArgumentThatEndsWithAnEqualsSign();
    void takesArgumentsForWhatTheyAre();
    void completesABuildFromAnother_data();
    void completesABuildFromAnother();
    void letsOptionsOverrideAnotherBuild();
    void leavesOutTheCompanion();
    void writesADigest();
    void namesTheDigestsImageLikeSha256sum();
    void replacesEveryBinInTheNameAlone();
    void takesTheBinaryFromStandardInput();
    void writesTheImageToStandardOutput();
    void replacesOutputsWhenForced();
    void replacesALinkAndNotWhatItLeadsTo();
    void showsProgressAtATerminalOnly();
    void fillsThePageToTheByte();
    void givesAPayloadOtherLabels();
    void relabelsNoImageThatIsWrong_data();
    void relabelsNoImageThatIsWrong();
};

void CreateTest::writesEveryByteAsTheFormatSays()
{
    ToolFixture tool;
    const Run run = create(&tool, {"--function", "fft", "Bob", "7", "Spectrum", "--date-time",
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
    const Run run = create(&tool, {"--digest"});
    const QByteArray image = tool.path("top.fcf").toUtf8();
    QCOMPARE(run.out, image + '\n' + tool.path("top.txt").toUtf8() + '\n' + image + ".sha256\n");
    const QJsonObject json = create(&tool, {"--digest", "--force", "--json"}).json();
    QCOMPARE(json["schema"].toInt(), 2);
    QCOMPARE(json["command"].toString(), QString("create"));
    QCOMPARE(json["exitCode"].toInt(-1), 0);
    QCOMPARE(json["image"].toString(), tool.path("top.fcf"));
    QCOMPARE(json["companion"].toString(), tool.path("top.txt"));
    QCOMPARE(json["header"].toObject()["binFileSize"].toInt(), 4000);
}

void CreateTest::takesTheLocalesDateUnlessToldOtherwise()
{
    ToolFixture tool;
    create(&tool);
    const QByteArray date =
        QLocale::system().toString(QDate(2024, 5, 31), QLocale::ShortFormat).toUtf8();
    QVERIFY(tool.read("top.txt").contains("\nDate: " + date + "\nTime: 13:45:00\n"));
}

void CreateTest::stampsWithSourceDateEpochInUtc()
{
    ToolFixture tool;
    tool.environment.sourceDateEpoch = "1717163100";
    create(&tool, {"--date-format", "iso"});
    QVERIFY(tool.read("top.txt").contains("\nDate: 2024-05-31\nTime: 13:45:00\n"));
}

void CreateTest::prefersAGivenDateAndTime()
{
    ToolFixture tool;
    tool.environment.sourceDateEpoch = "1717163100";
    create(&tool, {"--date-format", "iso", "--date-time", "1999-12-31T23:59:59"});
    QVERIFY(tool.read("top.txt").contains("\nDate: 1999-12-31\nTime: 23:59:59\n"));
    // git log --format=%cI prints it so.
    for (const char* const moment : {"2024-05-31T13:45:01+02:00", "2024-05-31T13:45:01Z"}) {
        create(&tool, {"--date-format", "iso", "--force", "--date-time", moment});
        QVERIFY(tool.read("top.txt").contains("\nDate: 2024-05-31\nTime: 13:45:01\n"));
    }
}

void CreateTest::takesTheSlotUnderAHiddenNameToo()
{
    ToolFixture tool;
    create(&tool);
    const Run run = tool.run({"create", tool.argument("top.bin"), "--like",
                              tool.argument("top.fcf"), "--slot", "7", "--force", "--json"});
    QCOMPARE(run.json()["header"].toObject()["configNumber"].toInt(), 7);

    const QByteArray help = tool.run({"create", "--help"}).out;
    QVERIFY(help.contains("--config"));
    QVERIFY2(!help.contains("--slot"), help);
    const Run both = create(&tool, {"--slot", "7", "--force"});
    QCOMPARE(both.code, 2);
    QVERIFY2(both.err.contains("error: --slot is another name of --config: give one of them\n"),
             both.err);
}

void CreateTest::givesEqualBytesTwice()
{
    ToolFixture tool;
    tool.environment.sourceDateEpoch = "1717163100";
    create(&tool);
    const QByteArray first = tool.read("top.fcf");
    tool.environment.clock = [] { return QDateTime({2030, 1, 1}, {0, 0, 0}); };
    QCOMPARE(create(&tool, {"--force"}).code, 0);
    QCOMPARE(tool.read("top.fcf"), first);
}

void CreateTest::takesADescriptionFromAFile()
{
    ToolFixture tool;
    tool.write("notes", "First\nSecond: Grün\n\n");
    QCOMPARE(create(&tool, {"--function", "fft", "Bob", "7", "x"}).code, 0);
    QCOMPARE(tool.run({"create", tool.argument("top.bin"), "--like", tool.argument("top.txt"),
                       "--description", "@" + tool.argument("notes"), "--force"})
                 .code,
             0);
    QVERIFY(tool.read("top.txt").contains("Description: First\nSecond: Grün\n---\n"));
    // Editors on other systems leave it so.
    tool.write("notes", "\xef\xbb\xbf"
                        "First\r\nThird\r\n");
    QCOMPARE(tool.run({"create", tool.argument("top.bin"), "--like", tool.argument("top.txt"),
                       "--description", "@" + tool.argument("notes"), "--force"})
                 .code,
             0);
    QVERIFY(tool.read("top.txt").contains("Description: First\nThird\n---\n"));
}

void CreateTest::takesAnAtSignAtTheStartOfADescription()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Arguments described = ToolFixture::described();
    described.back() = "@@home";
    QCOMPARE(tool.run(Arguments{"create", tool.argument("top.bin")} + described).code, 0);
    QVERIFY(tool.read("top.txt").contains("Description: @home\n"));
}

void CreateTest::takesAnArgumentThatEndsWithAnEqualsSign()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Arguments described = ToolFixture::described();
    described.back() = "--note=";
    QCOMPARE(tool.run(Arguments{"create", tool.argument("top.bin"), "--force",
                                "--author=", "--function", "--author=", "b=", "c", "d"} +
                      described)
                 .code,
             2);
    QCOMPARE(tool.run(Arguments{"create", tool.argument("top.bin"), "--force", "--function",
                                "--author=", "b=", "c", "d"} +
                      described)
                 .code,
             0);
    QVERIFY(tool.read("top.txt").contains("Description: --note=\n"));
    QVERIFY(tool.read("top.txt").contains("Function name: --author=\nFunction author: b=\n"));
    QVERIFY(tool.run({"show", "--", "--json="}).err.contains("--json=: FILE: cannot be read"));
}

void CreateTest::takesArgumentsForWhatTheyAre()
{
    ToolFixture tool;
    QCOMPARE(create(&tool, {"--function", "[a,b]", "--forced", "-5", "it's \"q\"", "--function",
                            "{}", "%%", "", "\x01x"})
                 .code,
             2);
    QCOMPARE(create(&tool, {"--function", "[a,b]", "--forced", "-5", "it's \"q\"", "--function",
                            "{}", "%%", "", "[x]"})
                 .code,
             0);
    QVERIFY(tool.read("top.txt").contains(
        "Function name: [a,b]\nFunction author: --forced\nFunction CI No: -5\n"
        "Function description: it's \"q\"\n---\nFunction name: {}\nFunction author: %%\n"
        "Function CI No: \nFunction description: [x]\n---\n----\n"));
    // An empty value is one, whatever comes next.
    QCOMPARE(tool.run({"create", tool.argument("top.bin"), "--description=", "--like",
                       tool.argument("top.txt"), "--force"})
                 .code,
             0);
    QVERIFY(tool.read("top.txt").contains("Description: \n---\n"));
}

void CreateTest::completesABuildFromAnother_data()
{
    QTest::addColumn<QString>("like");
    QTest::newRow("an image") << "like.fcf";
    QTest::newRow("a companion") << "like.txt";
    QTest::newRow("a recipe") << "like.json";
    QTest::newRow("a recipe on standard input") << "-";
}

void CreateTest::completesABuildFromAnother()
{
    QFETCH(QString, like);
    ToolFixture tool;
    create(&tool, {"--function", "fft", "Bob", "7", "one\n two\n\nthree"});
    const QByteArray image = tool.read("top.fcf");
    const QByteArray recipe = tool.run({"recipe", tool.argument("top.fcf")}).out;
    tool.write("like.fcf", image);
    tool.write("like.txt", tool.read("top.txt"));
    tool.write("like.json", recipe);
    tool.in = recipe;
    QVERIFY(QFile::remove(tool.path("top.fcf")) && QFile::remove(tool.path("top.txt")));

    const std::string source = like == "-" ? "-" : tool.argument(like);
    const Run run = tool.run({"create", tool.argument("top.bin"), "--like", source});
    QCOMPARE(run.code, 0);
    QCOMPARE(tool.read("top.fcf"), image);
}

void CreateTest::letsOptionsOverrideAnotherBuild()
{
    ToolFixture tool;
    create(&tool, {"--function", "fft", "Bob", "7", "x"});
    const Run run =
        tool.run({"create", tool.argument("top.bin"), "--like", tool.argument("top.fcf"),
                  "--version", "2.5", "--function", "fir", "Cy", "8", "y", "--force", "--json"});
    const QJsonObject header = run.json()["header"].toObject();
    QCOMPARE(header["author"].toString(), QString("Ann"));
    QCOMPARE(header["versionMajor"].toInt(), 2);
    QCOMPARE(header["versionMinor"].toInt(), 5);
    QCOMPARE(header["functions"].toArray().size(), 1);
    QCOMPARE(header["functions"].toArray()[0].toObject()["name"].toString(), QString("fir"));
    // A device of another module is not taken over.
    const Run other = tool.run({"create", tool.argument("top.bin"), "--like",
                                tool.argument("top.fcf"), "--module", "GPM", "--force"});
    QCOMPARE(other.code, 2);
    QVERIFY(other.err.contains("device: is missing: give --device"));
}

void CreateTest::leavesOutTheCompanion()
{
    ToolFixture tool;
    QCOMPARE(create(&tool, {"--no-companion"}).code, 0);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf"}));
}

void CreateTest::writesADigest()
{
    ToolFixture tool;
    QCOMPARE(create(&tool, {"--digest"}).code, 0);
    const QByteArray digest =
        QCryptographicHash::hash(tool.read("top.fcf"), QCryptographicHash::Sha256).toHex();
    QCOMPARE(tool.read("top.fcf.sha256"), digest + "  top.fcf\n");
}

void CreateTest::namesTheDigestsImageLikeSha256sum()
{
    ToolFixture tool;
    tool.write("a\\b.bin", ToolFixture::payload(100));
    QCOMPARE(tool.run(Arguments{"create", tool.argument("a\\b.bin"), "--digest"} +
                      ToolFixture::described())
                 .code,
             0);
    const QByteArray line = tool.read("a\\b.fcf.sha256");
    QVERIFY(line.startsWith('\\') && line.endsWith("  a\\\\b.fcf\n"));
    QCOMPARE(tool.run({"verify", tool.argument("a\\b.fcf")}).code, 0);
}

void CreateTest::replacesEveryBinInTheNameAlone()
{
    ToolFixture tool;
    QVERIFY(QDir().mkdir(tool.path("old.bin")));
    tool.write("old.bin/a.bin.bin", ToolFixture::payload(100));
    QCOMPARE(
        tool.run(Arguments{"create", tool.argument("old.bin/a.bin.bin")} + ToolFixture::described())
            .code,
        0);
    QVERIFY(tool.exists("old.bin/a.fcf.fcf"));
    QVERIFY(tool.exists("old.bin/a.txt.txt"));
}

void CreateTest::takesTheBinaryFromStandardInput()
{
    ToolFixture tool;
    create(&tool);
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
    create(&tool);
    const Run run = create(&tool, {"--output", "-", "--no-companion"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, tool.read("top.fcf"));
}

void CreateTest::replacesOutputsWhenForced()
{
    ToolFixture tool;
    tool.write("top.fcf", "old");
    tool.write("top.txt", ForgedImage().page());
    QCOMPARE(create(&tool, {"--force"}).code, 0);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.txt"}));
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), tool.argument("top.txt")}).code, 0);
}

void CreateTest::replacesALinkAndNotWhatItLeadsTo()
{
    ToolFixture tool;
    tool.write("precious", "precious");
    QVERIFY(QFile::link("precious", tool.path("top.fcf")));
    QVERIFY(QFile::link("nowhere", tool.path("top.txt")));
    QCOMPARE(create(&tool).code, 4);
    QCOMPARE(create(&tool, {"--force"}).code, 0);
    QCOMPARE(tool.read("precious"), QByteArray("precious"));
    QVERIFY(!QFileInfo(tool.path("top.fcf")).isSymLink());
    QVERIFY(!tool.exists("nowhere"));
}

void CreateTest::showsProgressAtATerminalOnly()
{
    ToolFixture tool;
    qint64 now = 0;
    tool.environment.milliseconds = [&now] { return now += 1100; };
    QVERIFY(!create(&tool).err.contains('\r'));
    tool.environment.errIsTerminal = true;
    QVERIFY(create(&tool, {"--force"}).err.contains("\rcreate: 100 %\r\033[K"));
    QVERIFY(!create(&tool, {"--force", "--quiet"}).err.contains('\r'));
    tool.in = ToolFixture::payload(4000);
    const std::string image = tool.argument("piped.fcf");
    QVERIFY(tool.run(Arguments{"create", "-", "--output", image} + ToolFixture::described())
                .err.contains("\rreading standard input: 0.0 MiB\r\033[K"));
    tool.environment.milliseconds = [] { return 0; };
    QVERIFY(!create(&tool, {"--force"}).err.contains('\r'));
}

void CreateTest::fillsThePageToTheByte()
{
    ToolFixture tool;
    create(&tool);
    const int used = tool.read("top.txt").indexOf("----\n") + 5;
    const struct {
        int textEnd;
        int pageBytes;
    } pages[] = {{2112, 2112}, {2111, 2117}, {2106, 2112}, {2107, 2113}};
    for (const auto& page : pages) {
        Arguments described = ToolFixture::described();
        described.back() += std::string(static_cast<std::size_t>(page.textEnd - used), 'x');
        QCOMPARE(
            tool.run(Arguments{"create", tool.argument("top.bin"), "--force"} + described).code, 0);
        QCOMPARE(tool.read("top.txt").size(), page.pageBytes);
        QCOMPARE(tool.read("top.fcf").size(), page.pageBytes + 4000);
        QCOMPARE(tool.run({"verify", tool.argument("top.fcf")}).code, 0);
    }
}

void CreateTest::givesAPayloadOtherLabels()
{
    // The header of the first has other lengths, and 0xFF is behind it.
    ToolFixture tool;
    tool.write("old.bin", ToolFixture::payload(4003));
    QCOMPARE(
        tool.run(Arguments{"create", tool.argument("old.bin"), "--digest", "--pad-to", "8K",
                           "--function", "fft", "Bob", "7", QByteArray(900, 'x').toStdString()} +
                 ToolFixture::described())
            .code,
        0);
    const QByteArray old = tool.read("old.fcf");
    const std::string image = tool.argument("old.fcf");
    const Arguments relabel{"create", image, "--relabel", "--output", tool.argument("new.fcf")};
    const Run run = tool.run(relabel + ToolFixture::described() + Arguments{"--digest"});
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("old.fcf"), old);

    // The same as of the binary.
    const QByteArray relabelled = tool.read("new.fcf");
    const QByteArray companion = tool.read("new.txt");
    const Arguments again{"create", tool.argument("old.bin"), "--force", "--output",
                          tool.argument("new.fcf")};
    QCOMPARE(tool.run(again + ToolFixture::described() + Arguments{"--digest"}).code, 0);
    QCOMPARE(relabelled, tool.read("new.fcf"));
    QCOMPARE(companion, tool.read("new.txt"));

    // With --like nothing but what is given changes.
    const Run like =
        tool.run(relabel + Arguments{"--like", image, "--config", "7", "--force", "--digest"});
    QVERIFY2(like.code == 0, like.err);
    const Run diff = tool.run({"diff", image, tool.argument("new.fcf"), "--json", "--ignore",
                               "date,time,fileName,padding"});
    const QJsonArray fields = diff.json()["fields"].toArray();
    QVERIFY2(fields.size() == 1 && fields[0].toObject()["field"] == "configNumber", diff.out);
    QVERIFY2(diff.json()["payload"].isNull(), diff.out);

    // Standard input has nothing beside it, and may have any name.
    tool.in = old;
    const Run input = tool.run(Arguments{"create", "-", "--relabel", "--force", "--digest",
                                         "--output", tool.argument("new.fcf")} +
                               ToolFixture::described());
    QVERIFY2(input.code == 0, input.err);
    QCOMPARE(tool.read("new.fcf"), relabelled);
}

void CreateTest::relabelsNoImageThatIsWrong_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("message");
    const QByteArray right = ForgedImage().bytes();
    ForgedImage slot;
    slot.numbers[8] = 11;
    const QStringList output{"--output", "new.fcf"};
    QTest::newRow("an image that is not valid")
        << "top.fcf" << slot.bytes() << output << 1 << QByteArray("configNumber at offset ");
    QTest::newRow("a payload that is cut")
        << "top.fcf" << right.chopped(1) << output << 1 << QByteArray("1 byte is missing");
    QTest::newRow("a companion") << "top.fcf" << ForgedImage().page() << output << 1
                                 << QByteArray("missing at the end");
    QTest::newRow("no image") << "top.fcf" << ToolFixture::payload(4000) << output << 1
                              << QByteArray("is no FCF file");
    QTest::newRow("a digest that contradicts it")
        << "wrong.fcf" << right << output << 1 << QByteArray("digest at offset 0: is not that of");
    QTest::newRow("no output") << "top.fcf" << right << QStringList() << 2
                               << QByteArray("--output: is missing");
    QTest::newRow("the image as the output")
        << "top.fcf" << right << QStringList{"--output", "top.fcf", "--force"} << 2
        << QByteArray("is the input itself");
    QTest::newRow("a swap") << "top.fcf" << right << output + QStringList{"--swap", "bits"} << 2
                            << QByteArray("--swap: is of a binary");
}

void CreateTest::relabelsNoImageThatIsWrong()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    QFETCH(int, code);
    QFETCH(QByteArray, message);
    ToolFixture tool;
    tool.write(name, bytes);
    tool.write("wrong.fcf.sha256", QByteArray(64, '0') + "  wrong.fcf\n");
    const QStringList before = tool.names();
    Arguments arguments{"create", tool.argument(name), "--relabel"};
    for (const QString& option : options)
        arguments.push_back(option.endsWith(".fcf") ? tool.argument(option) : option.toStdString());
    const Run run = tool.run(arguments + ToolFixture::described());
    QCOMPARE(run.code, code);
    QVERIFY2(run.err.contains(message), run.err);
    QCOMPARE(tool.names(), before);
    QCOMPARE(tool.read(name), bytes);
}

QTEST_GUILESS_MAIN(CreateTest)
#include "CreateTest.moc"
