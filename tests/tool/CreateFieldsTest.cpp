#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QTextCodec>
#include <QtTest>

/// What create takes for the fields of a header, and what it has doubts about.
class CreateFieldsTest : public QObject {
    Q_OBJECT

private slots:
    void refusesWhatCannotBeBuilt_data();
    void refusesWhatCannotBeBuilt();
    void takesLettersOfAllKinds();
    void takesADescriptionFromAFile();
    void takesAnAtSignAtTheStartOfADescription();
    void namesADescriptionFileThatIsNotThere();
    void namesADescriptionFileThatIsNoText();
    void refusesALocaleThatHasNoSuchLetter();
    void warnsOfALocaleThatTheTargetDoesNotShare();
    void warnsOfTextsThatTheWindowWouldLose();
    void warnsOfADescriptionThatTheWindowWouldCut();
    void warnsOfCharactersThatDoNotShow_data();
    void warnsOfCharactersThatDoNotShow();
};

void CreateFieldsTest::refusesWhatCannotBeBuilt_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* name, const char* option, const QString& value,
                        const char* text) { QTest::newRow(name) << option << value << text; };
    row("no author", "--author", "", "author: is blank: give --author");
    row("an author of blanks", "--author", "   ", "author: is blank: give --author");
    row("a CI number of blanks", "--ci", " \t", "ciNumber: is blank: give --ci");
    row("a negative version", "--version", "-1.-2", "version: -1.-2 has a negative number");
    row("no CI number", "--ci", "", "ciNumber: is blank: give --ci");
    row("an unknown module", "--module", "dfe",
        "module: \"dfe\" is none of \"DFE\", \"DFE2\", \"GPM\"");
    row("another module's device", "--device", "Processing_FPGA_2",
        "device: \"Processing_FPGA_2\" is no device of module DFE");
    row("slot 0", "--config", "0", "configNumber: 0 is no slot from 1 to 10");
    row("slot 11", "--config", "11", "configNumber: 11 is no slot from 1 to 10");
    row("a slot that is no number", "--config", "1x", "--config: \"1x\" is not a number");
    row("a slot with a blank", "--config", " 1", "--config: \" 1\" is not a number");
    row("a slot beyond 32 bits", "--config", "4294967297", "--config: \"4294967297\" is not a");
    row("an empty version", "--version", "", "--version: \"\" is not two numbers like 1.12");
    row("a version of one number", "--version", "1", "--version: \"1\" is not two numbers");
    row("a version of three", "--version", "1.2.3", "--version: \"1.2.3\" is not two numbers");
    row("a version with letters", "--version", "1.b", "--version: \"1.b\" is not two numbers");
    row("a version beyond 32 bits", "--version", "1.2147483648", "is not two numbers");
    row("an author of two lines", "--author", "A\nB", "author: holds a line break");
    row("a carriage return", "--ci", "4\r2", "ciNumber: holds a carriage return");
    row("a line separator", "--description", QString("a") + QChar(0x2028) + "b",
        "description: holds a line break");
    row("a paragraph separator", "--author", QString("a") + QChar(0x2029) + "b",
        "author: holds a line break");
    row("a control character", "--author", "A\x1b[2J",
        "author: holds the control character \\u001b");
    row("a mark in the description", "--description", "a --- b", "description: holds \"---\"");
    row("a mark on its own line", "--description", "a\n---\nb", "description: holds \"---\"");
    row("a carriage return in the description", "--description", "a\r\nb",
        "description: holds a carriage return");
}

void CreateFieldsTest::refusesWhatCannotBeBuilt()
{
    QFETCH(QString, option);
    QFETCH(QString, value);
    QFETCH(QString, text);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run = tool.create("top.bin", {}, {{option.toStdString(), value.toStdString()}});
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    for (const QByteArray& line : run.err.trimmed().split('\n'))
        QVERIFY2(line.contains("/top.bin: "), line);
    QCOMPARE(run.code, 2);
    QCOMPARE(run.out, QByteArray());
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void CreateFieldsTest::takesLettersOfAllKinds()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run =
        tool.create("top.bin", {}, {{"--author", "---\tÄ字😀"}, {"--description", "one\ntwo"}});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err, QByteArray());
    QVERIFY(tool.read("top.txt").contains("\nAuthor: ---\tÄ字😀\n"));
    QVERIFY(tool.read("top.txt").contains("\nDescription: one\ntwo\n---\n"));
}

void CreateFieldsTest::takesADescriptionFromAFile()
{
    ToolFixture tool;
    tool.write("notes", "First\nSecond: Grün\n\n");
    QCOMPARE(tool.createTop({"--function", "fft", "Bob", "7", "x"}).code, 0);
    const Arguments create{
        "create",        tool.argument("top.bin"),     "--like", tool.argument("top.txt"),
        "--description", "@" + tool.argument("notes"), "--force"};
    QCOMPARE(tool.run(create).code, 0);
    QVERIFY(tool.read("top.txt").contains("Description: First\nSecond: Grün\n---\n"));

    // Editors on other systems leave it so.
    tool.write("notes", "\xef\xbb\xbf"
                        "First\r\nThird\r\n");
    QCOMPARE(tool.run(create).code, 0);
    QVERIFY(tool.read("top.txt").contains("Description: First\nThird\n---\n"));
}

void CreateFieldsTest::takesAnAtSignAtTheStartOfADescription()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QCOMPARE(tool.create("top.bin", {}, {{"--description", "@@home"}}).code, 0);
    QVERIFY(tool.read("top.txt").contains("Description: @home\n"));
}

void CreateFieldsTest::namesADescriptionFileThatIsNotThere()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run = tool.create("top.bin", {}, {{"--description", "@/no/such/file"}});
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("error: /no/such/file: --description: cannot be read"), run.err);
    QCOMPARE(run.err.count('\n'), 1);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void CreateFieldsTest::namesADescriptionFileThatIsNoText()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write("notes", "gr\xfcn");
    const Run run = tool.create("top.bin", {}, {{"--description", "@" + tool.argument("notes")}});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("error: " + tool.path("notes").toUtf8() +
                              ": --description: is not text in the encoding of this locale, "
                              "UTF-8\n"),
             run.err);

    tool.write("like.json", "{\"recipe\": 2, \"descriptionFile\": \"notes\"}");
    const Run like = tool.run(
        Arguments{"create", tool.argument("top.bin"), "--like", tool.argument("like.json")} +
        ToolFixture::describedWithout("--description"));
    QCOMPARE(like.code, 2);
    QVERIFY2(like.err.contains("error: " + tool.path("notes").toUtf8() + ": descriptionFile: is "),
             like.err);
}

void CreateFieldsTest::refusesALocaleThatHasNoSuchLetter()
{
    ToolFixture tool;
    tool.environment.codec = QTextCodec::codecForName("ISO-8859-1");
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write("like.json", "{\"recipe\": 2, \"description\": \"\\u0416\"}");
    const Run run = tool.run(
        Arguments{"create", tool.argument("top.bin"), "--like", tool.argument("like.json")} +
        ToolFixture::describedWithout("--description"));
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("description: cannot be encoded in this locale's ISO-8859-1"),
             run.err);
    QCOMPARE(tool.names(), QStringList({"like.json", "top.bin"}));
}

void CreateFieldsTest::warnsOfALocaleThatTheTargetDoesNotShare()
{
    ToolFixture tool;
    tool.environment.codec = QTextCodec::codecForName("ISO-8859-1");
    const Run run = tool.createTop({"--function", "Gr\xfcn", "Bob", "7", "x"});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("text: this locale writes texts in ISO-8859-1, but the target reads "
                              "UTF-8"),
             run.err);
    // One byte a letter, of the filler too.
    QVERIFY(tool.read("top.txt").contains("Function name: Gr\xfcn\n"));
    QVERIFY(tool.read("top.txt").endsWith("\xef\xbf\xbd"));
    QVERIFY(tool.read("top.txt").size() >= 2112 && tool.read("top.txt").size() <= 2114);
    QCOMPARE(tool.run({"verify", tool.argument("top.fcf")}).code, 0);
    QCOMPARE(tool.createTop({"--force", "--strict"}).code, 2);
}

void CreateFieldsTest::warnsOfTextsThatTheWindowWouldLose()
{
    ToolFixture tool;
    const Run run = tool.createTop({"--function", "fft: fast", "Bob", "7", "one\ntwo"});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("functions[0].name: the generator window would load no more of it "
                              "than \"fft\""),
             run.err);
    QVERIFY2(run.err.contains("functions[0].description: the generator window would load no more "
                              "of it than \"onetwo\""),
             run.err);
}

void CreateFieldsTest::warnsOfADescriptionThatTheWindowWouldCut()
{
    for (const int length : {1000, 1001}) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        const std::string text(static_cast<std::size_t>(length), 'x');
        const Run run = tool.create("top.bin", {}, {{"--description", text}});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.err.contains("warning: " + tool.path("top.bin").toUtf8() +
                                  ": description: has 1001 characters: the generator window cuts "
                                  "it behind 1000"),
                 length > 1000);
    }
}

void CreateFieldsTest::warnsOfCharactersThatDoNotShow_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("a mark that turns the direction")
        << QString(QChar(0x202e)) << QByteArray("\\u202e");
    QTest::newRow("a blank without a width") << QString(QChar(0x200b)) << QByteArray("\\u200b");
    QTest::newRow("an invisible letter") << QString(QChar(0x3164)) << QByteArray("\\u3164");
    QTest::newRow("a soft hyphen") << QString(QChar(0xad)) << QByteArray("\\u00ad");
}

void CreateFieldsTest::warnsOfCharactersThatDoNotShow()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, shown);
    ToolFixture tool;
    tool.makeImage();
    const Run run =
        tool.create("top.bin", {"--force", "--function", "f" + text.toStdString(), "a", "b", "c"});
    QCOMPARE(run.code, 0);
    const QByteArray message =
        "functions[0].name: has the character " + shown + ", which is not shown as a letter";
    QVERIFY2(run.err.contains("warning: ") && run.err.contains(message), run.err);
    QVERIFY(tool.run({"verify", tool.argument("top.fcf")}).out.contains("note: "));
    QCOMPARE(tool.create("top.bin",
                         {"--force", "--strict", "--function", text.toStdString(), "a", "b", "c"})
                 .code,
             2);
}

ZORV_TEST(CreateFieldsTest)
#include "CreateFieldsTest.moc"
