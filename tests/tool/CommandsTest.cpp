#include "ProgramTest.h"

#include <QJsonArray>
#include <QProcess>
#include <QtTest>

#include <algorithm>

/// What each command gives, through the program itself.
class CommandsTest : public ProgramTest {
    Q_OBJECT

private slots:
    void runsEveryCommand();
    void takesAContainerToFlashAndBack();
    void comparesAndListsImages();
    void takesADescriptionFromBesideTheRecipe();
    void listsIntoNoImage();
};

void CommandsTest::runsEveryCommand()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const QString image = tool.path("top.fcf");
    const Run made = run(create(tool, "top.bin", {"--function", "fft", "Bob", "7", "x"}));
    QCOMPARE(made.code, 0);
    QCOMPARE(made.err, QByteArray());
    QVERIFY(run({"show", image}).out.contains("  author         Ann\n"));
    QCOMPARE(
        run({"verify", image, "--bin", tool.path("top.bin"), "--companion", tool.path("top.txt")})
            .code,
        0);
    QCOMPARE(run({"extract", image, "--output", tool.path("out.bin")}).code, 0);
    QCOMPARE(tool.read("out.bin"), tool.read("top.bin"));
    const Run recipe = run({"recipe", image});
    QCOMPARE(recipe.json()["recipe"].toInt(), 2);
    tool.write("top.json", recipe.out);
    const Run again = run({"create", tool.path("top.bin"), "--like", tool.path("top.json"),
                           "--output", tool.path("sub.fcf"), "--json"});
    QCOMPARE(again.code, 0);
    QCOMPARE(again.json()["header"].toObject()["functions"].toArray().size(), 1);
}

void CommandsTest::takesAContainerToFlashAndBack()
{
    ToolFixture tool;
    QByteArray swapped = ToolFixture::payload(4000);
    for (int word = 0; word < swapped.size(); word += 4)
        std::reverse(swapped.begin() + word, swapped.begin() + word + 4);
    QByteArray bit = QByteArray::fromHex("00090ff00ff00ff00ff0000001");
    for (const char* const field : {"atop", "bpart", "cday", "dtime"})
        bit += QByteArray(field, 1) + QByteArray(1, '\0') + static_cast<char>(qstrlen(field)) +
               QByteArray(field + 1) + '\0';
    bit += 'e' + QByteArray::fromHex("00000fa0") + swapped;
    tool.write("top.bit", bit);
    const Run made =
        run(create(tool, "top.bit", {"--swap", "bytes", "--pad-to", "block", "--digest"}));
    QVERIFY2(made.code == 0, made.err);
    QVERIFY2(made.err.contains("design top, part part, day time"), made.err);
    QCOMPARE(tool.read("top.fcf").size(), 64 * 2112);
    const Run verified = run({"verify", tool.path("top.fcf"), "--bin", tool.path("top.bit"),
                              "--swap", "bytes", "--require-digest"});
    QVERIFY2(verified.code == 0, verified.out);
    QCOMPARE(run({"extract", tool.path("top.fcf"), "-o", tool.path("out.bin")}).code, 0);
    QCOMPARE(tool.read("out.bin"), ToolFixture::payload(4000));
}

void CommandsTest::comparesAndListsImages()
{
    ToolFixture tool;
    tool.write("a.bin", ToolFixture::payload(4000));
    tool.write("b.bin", ToolFixture::payload(4001));
    QCOMPARE(run(create(tool, "a.bin", {"--digest"})).code, 0);
    QCOMPARE(run(create(tool, "b.bin")).code, 0);
    const QString a = tool.path("a.fcf");
    QCOMPARE(run({"diff", a, a}).code, 0);
    const Run differs = run({"diff", a, tool.path("b.fcf")});
    QCOMPARE(differs.code, 1);
    QVERIFY2(differs.out.contains("4000 bytes | 4001 bytes; 1 differ, the first at offset 4000"),
             differs.out);
    QCOMPARE(run({"show", "--field", "version", a}).out, QByteArray("1.0\n"));
    const Run listed = run({"list", tool.path(".")});
    QCOMPARE(listed.code, 1);
    QCOMPARE(listed.out.count('\n'), 4);
    QVERIFY2(listed.out.contains("slot 1 is that of 2 images"), listed.out);
    QCOMPARE(run({"list", a, "--csv"}).out.count('\n'), 2);
    QCOMPARE(run({"list", a, "--json", "--digest"}).json()["files"].toArray().size(), 1);
}

void CommandsTest::takesADescriptionFromBesideTheRecipe()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QVERIFY(QDir().mkdir(tool.path("sub")));
    tool.write("sub/notes.txt", "\xef\xbb\xbfRev C\r\nsecond\n");
    const QByteArray recipe =
        "{\"$schema\": \"recipe.schema.json\", \"recipe\": 2, \"author\": \"Ann\", \"ciNumber\": "
        "\"1\", \"module\": \"DFE2\", \"device\": \"Processing_FPGA\", \"configNumber\": 1, "
        "\"version\": \"1.12\", \"descriptionFile\": \"notes.txt\"}";
    tool.write("sub/top.json", recipe);
    const QStringList arguments = {"create", tool.path("top.bin"), "--like",
                                   tool.path("sub/top.json"), "--json"};
    const Run made = run(arguments);
    QVERIFY2(made.code == 0, made.err);
    QCOMPARE(made.json()["header"].toObject()["description"].toString(), QString("Rev C\nsecond"));
    tool.write("sub/top.json", QByteArray(recipe).replace("notes.txt", "none.txt"));
    const Run missing = run(arguments + QStringList{"--force"});
    QCOMPARE(missing.code, 3);
    QVERIFY2(missing.err.contains("sub/none.txt: descriptionFile: cannot be read"), missing.err);
    tool.write("sub/top.json", QByteArray(recipe).replace("{", "{\"description\": \"x\", "));
    QCOMPARE(run(arguments + QStringList{"--force"}).code, 2);
}

void CommandsTest::listsIntoNoImage()
{
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    QProcess process;
    process.setStandardOutputFile(tool.path("top.fcf"), QIODevice::Append);
    process.start(PELK_FCF, {"list", tool.path(".")});
    const Run run = finished(&process);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("is the input itself"), run.err);
    QCOMPARE(tool.read("top.fcf"), image);
}

QTEST_GUILESS_MAIN(CommandsTest)
#include "CommandsTest.moc"
