#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QtTest>

/// Builds that are like another one, and images that get other labels.
class CreateLikeTest : public QObject {
    Q_OBJECT

private slots:
    void completesABuildFromAnother_data();
    void completesABuildFromAnother();
    void letsOptionsOverrideAnotherBuild();
    void takesADescriptionFromBesideTheRecipe();
    void refusesAnotherBuild_data();
    void refusesAnotherBuild();
    void saysThatTheAuthorOfAnotherBuildIsBlank();
    void givesAPayloadOtherLabels();
    void relabelsNoImageThatIsWrong_data();
    void relabelsNoImageThatIsWrong();
};

void CreateLikeTest::completesABuildFromAnother_data()
{
    QTest::addColumn<QString>("like");
    QTest::newRow("an image") << "like.fcf";
    QTest::newRow("a companion") << "like.txt";
    QTest::newRow("a recipe") << "like.json";
    QTest::newRow("a recipe on standard input") << "-";
}

void CreateLikeTest::completesABuildFromAnother()
{
    QFETCH(QString, like);
    ToolFixture tool;
    tool.createTop({"--function", "fft", "Bob", "7", "one\n two\n\nthree"});
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

void CreateLikeTest::letsOptionsOverrideAnotherBuild()
{
    ToolFixture tool;
    tool.createTop({"--function", "fft", "Bob", "7", "x"});
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

void CreateLikeTest::takesADescriptionFromBesideTheRecipe()
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
    const Arguments create{"create", tool.argument("top.bin"), "--like",
                           tool.argument("sub/top.json"), "--json"};
    const Run made = tool.run(create);
    QVERIFY2(made.code == 0, made.err);
    QCOMPARE(made.json()["header"].toObject()["description"].toString(), QString("Rev C\nsecond"));

    tool.write("sub/top.json", QByteArray(recipe).replace("notes.txt", "none.txt"));
    const Run missing = tool.run(create + Arguments{"--force"});
    QCOMPARE(missing.code, 3);
    QVERIFY2(missing.err.contains("sub/none.txt: descriptionFile: cannot be read"), missing.err);

    tool.write("sub/top.json", QByteArray(recipe).replace("{", "{\"description\": \"x\", "));
    QCOMPARE(tool.run(create + Arguments{"--force"}).code, 2);
}

void CreateLikeTest::refusesAnotherBuild_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const auto recipe = [](const char* name, const QByteArray& json, const char* text) {
        QTest::newRow(name) << "like.json" << json << text;
    };
    QTest::newRow("an unknown ending")
        << "like.xml" << QByteArray("<x/>") << "the name ends with neither .fcf, .txt nor .json";
    QTest::newRow("an image that is none")
        << "like.fcf" << QByteArray(3000, 'x')
        << "like.fcf: text: is no FCF file: neither the reserved";
    QTest::newRow("an empty companion") << "like.txt" << QByteArray() << "is no FCF header page";
    recipe("no JSON", "{", "like.json: is not JSON: ");
    recipe("a mistake in the first line", "{\"recipe\" 2}", " at line 1, column 11\n");
    recipe("a mistake in a line behind letters",
           "{\n    \"recipe\": 2,\n    \"author\": \"\xc3\xa4\xc3\xb6\" 3\n}\n",
           " at line 3, column 20\n");
    recipe("a text that ends too early", "{\"recipe\": 2,\n", " at line 2, column 1\n");
    recipe("something behind the object", "{\"recipe\": 2}\n\nx\n", " at line 3, column 1\n");
    recipe("no object", "[]", "recipe: is missing: this is not a recipe");
    recipe("another object", "{\"author\": \"Ann\"}", "recipe: is missing: this is not a recipe");
    recipe("a later recipe", "{\"recipe\": 3}", "recipe: is 3, but only 2 is known");
    recipe("an earlier recipe", "{\"recipe\": 1}", "recipe: is 1, but only 2 is known");
    recipe("an unknown name", "{\"recipe\": 2, \"autor\": \"\"}",
           "autor: is not known in a recipe");
    recipe("a number for a text", "{\"recipe\": 2, \"author\": 5}", "author: is not a text");
    recipe("a text for a number", "{\"recipe\": 2, \"configNumber\": \"5\"}",
           "configNumber: is not a whole number of 32 bits");
    recipe("a fraction", "{\"recipe\": 2, \"configNumber\": 1.5}", "configNumber: is not a whole");
    recipe("a large number", "{\"recipe\": 2, \"configNumber\": 4294967297}",
           "configNumber: is not a whole number");
    recipe("a version that is an object",
           "{\"recipe\": 2, \"version\": {\"major\": 1, \"minor\": 0}}",
           "version: is not a text like \"1.12\"");
    recipe("a version of another kind", "{\"recipe\": 2, \"version\": \"1.\"}",
           "version: is not two numbers like \"1.12\"");
    recipe("a version that is a number", "{\"recipe\": 2, \"version\": 1.12}",
           "version: is a number, not a text like \"1.12\"");
    recipe("a version that is no text", "{\"recipe\": 2, \"version\": true}",
           "version: is not a text like \"1.12\"");
    recipe("a negative version", "{\"recipe\": 2, \"version\": \"-1.0\"}",
           "version: -1.0 has a negative number");
    recipe("a name given twice", "{\"recipe\": 2, \"description\": \"a\", \"description\": \"b\"}",
           "description: is given twice");
    recipe("a name given twice with an escape",
           "{\"recipe\": 2, \"author\": \"a\", \"\\u0061uthor\": \"b\"}", "author: is given twice");
    recipe("a function that is no object", "{\"recipe\": 2, \"functions\": [\"x\"]}",
           "functions[0]: is not an object");
    recipe("functions that are no list", "{\"recipe\": 2, \"functions\": {}}",
           "functions: is not a list");
    recipe("half a function", "{\"recipe\": 2, \"functions\": [{\"name\": \"\"}]}",
           "functions[0].author: is missing");
    recipe("a function of other names",
           "{\"recipe\": 2, \"functions\": [{\"name\": \"\", \"author\": \"\", \"ciNumber\": \"\", "
           "\"description\": \"\", \"x\": 1}]}",
           "functions[0].x: is not known in a recipe");
    recipe("half a letter", "{\"recipe\": 2, \"author\": \"\\ud800\"}",
           "author: cannot be encoded in this locale's UTF-8");
    recipe("a large recipe", QByteArray(1024 * 1024 + 1, ' '), "has more than 1048576 bytes");
}

void CreateLikeTest::refusesAnotherBuild()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write(name, bytes);
    // One that is given would go before that of a recipe.
    const char* const open = bytes.contains("-1") ? "--version" : "--author";
    const Run run =
        tool.run(Arguments{"create", tool.argument("top.bin"), "--like", tool.argument(name)} +
                 ToolFixture::describedWithout(open));
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    QVERIFY2(run.err.contains('/' + name.toUtf8() + ": "), run.err);
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.names().size(), 2);
}

void CreateLikeTest::saysThatTheAuthorOfAnotherBuildIsBlank()
{
    ToolFixture tool;
    ForgedImage image;
    image.text.replace("Ann", "");
    tool.write("like.fcf", image.bytes());
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run =
        tool.run({"create", tool.argument("top.bin"), "--like", tool.argument("like.fcf")});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("like.fcf: author: is blank: give --author"), run.err);
    QCOMPARE(tool.run({"create", tool.argument("top.bin"), "--like", tool.argument("like.fcf"),
                       "--author", "Ann"})
                 .code,
             0);
}

void CreateLikeTest::givesAPayloadOtherLabels()
{
    // The header of the first has other lengths, and 0xFF is behind it.
    ToolFixture tool;
    tool.write("old.bin", ToolFixture::payload(4003));
    const Arguments fft{"--function", "fft", "Bob", "7", std::string(900, 'x')};
    QCOMPARE(tool.create("old.bin", Arguments{"--digest", "--pad-to", "8K"} + fft).code, 0);
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

void CreateLikeTest::relabelsNoImageThatIsWrong_data()
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

void CreateLikeTest::relabelsNoImageThatIsWrong()
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

ZORV_TEST(CreateLikeTest)
#include "CreateLikeTest.moc"
