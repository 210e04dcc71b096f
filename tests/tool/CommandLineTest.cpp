#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QtTest>

/// How a command line is read: commands, options, values and what is wrong with them.
class CommandLineTest : public ProgramTest {
    Q_OBJECT

private slots:
    void endsWithEachExitCode();
    void printsHelpAndVersion();
    void showsAllThatCreateTakes();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void refusesArgumentsThatAreNoText();
    void refusesAnOptionAsAValue_data();
    void refusesAnOptionAsAValue();
    void takesShortNamesOfOptions();
    void takesArgumentsForWhatTheyAre();
    void takesAnArgumentThatEndsWithAnEqualsSign();
    void takesTheSlotUnderAHiddenNameToo();
};

void CommandLineTest::endsWithEachExitCode()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write("bad.fcf", "bad");
    QCOMPARE(run(create(tool, "top.bin")).code, 0);
    QCOMPARE(run({"verify", tool.path("bad.fcf")}).code, 1);
    QCOMPARE(run({"verify", "--nonsense"}).code, 2);
    QCOMPARE(run(create(tool, "top.bin", {"--config", "11"})).code, 2);
    QCOMPARE(run(create(tool, "none.bin")).code, 3);
    QCOMPARE(run(create(tool, "top.bin")).code, 4);
    QCOMPARE(run({"--help"}).code, 0);
}

void CommandLineTest::printsHelpAndVersion()
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

void CommandLineTest::showsAllThatCreateTakes()
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

void CommandLineTest::refusesWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QStringList() << "a command is missing";
    QTest::newRow("an unknown command") << QStringList({"make"}) << "make";
    QTest::newRow("an unknown option") << QStringList({"show", "--all", "a.fcf"}) << "--all";
    QTest::newRow("an unknown option, and a missing one")
        << QStringList({"extract", "a.fcf", "--out", "b"}) << "\"--out\" is not known";
    QTest::newRow("a digest of a companion")
        << QStringList({"verify", "top.txt", "--digest", "none"})
        << "top.txt: --digest: is of an image; this is a companion";
    QTest::newRow("an option without its value")
        << QStringList({"create", "a.bin", "--author"}) << "error: --author lacks a value: TEXT\n";
    QTest::newRow("a short option without its value")
        << QStringList({"create", "a.bin", "-o"}) << "error: --output lacks a value: FILE\n";
    for (const char* const value : {"maybe", "no", "true", ""})
        QTest::addRow("a value for an option that takes none, %s", value)
            << QStringList({"show", "a.fcf", QString("--check=") + value})
            << "error: --check takes no value\n";
    QTest::newRow("an option twice")
        << QStringList({"create", "a.bin", "--author", "A", "--author", "B"})
        << "error: --author is given more than once\n";
    QTest::newRow("a function of three texts")
        << QStringList({"create", "a.bin", "--function", "a", "b", "c"})
        << "error: --function lacks a value: NAME AUTHOR CI DESCRIPTION\n";
    QTest::newRow("a second function of three texts")
        << QStringList(
               {"create", "a.bin", "--function", "a", "b", "c", "d", "--function", "a", "b", "c"})
        << "error: --function lacks a value: NAME AUTHOR CI DESCRIPTION\n";
    QTest::newRow("two binaries") << QStringList({"create", "a.bin", "b.bin"})
                                  << "error: \"b.bin\" is not expected\n";
    QTest::newRow("three binaries") << QStringList({"create", "a.bin", "b.bin", "[c].bin"})
                                    << "error: \"b.bin\", \"[c].bin\" are not expected\n";
    QTest::newRow("two unknown options")
        << QStringList({"create", "a.bin", "--one", "--two", "b.bin"})
        << "error: \"--one\", \"--two\" are not known\n";
    QTest::newRow("no file") << QStringList({"verify"}) << "FILE is required";
    QTest::newRow("no output") << QStringList({"extract", "a.fcf"}) << "--output is required";
    QTest::newRow("one binary for two images")
        << QStringList({"verify", "a.fcf", "b.fcf", "--bin", "a.bin"}) << "are about one file";
    QTest::newRow("an unknown type") << QStringList({"verify", "a.fcf", "--type", "text"})
                                     << "--type: is neither \"image\" nor \"companion\"";
    QTest::newRow("a type that cannot be told")
        << QStringList({"verify", "a.img"}) << "--type: is missing: the name ends with neither";
    for (const char* const name : {"TOP.FCF", "TOP.TXT", "top.Fcf"})
        QTest::addRow("an ending that is not in lower case, %s", name)
            << QStringList({"verify", name})
            << "--type: is missing: the name ends with neither .fcf nor .txt, in lower case\n";
    QTest::newRow("a binary whose ending is not in lower case")
        << QStringList({"create", "TOP.BIN"})
        << "TOP.BIN: --output: is missing: only a name that ends with .bin or .bit, in lower case";
    QTest::newRow("an output whose ending is not in lower case")
        << QStringList({"create", "top.bin", "--output", "UP.FCF"})
        << "UP.FCF: --output: the name of an image ends with .fcf, in lower case\n";
    QTest::newRow("a recipe whose ending is not in lower case")
        << QStringList({"create", "top.bin", "--like", "TOP.JSON"})
        << "the name ends with neither .fcf, .txt nor .json, in lower case\n";
    QTest::newRow("standard input twice")
        << QStringList({"create", "-", "--like", "-"}) << "it can be read only once";
    QTest::newRow("a companion on standard output")
        << QStringList({"create", "top.bin", "--output", "-"}) << "give --no-companion as well";
    QTest::newRow("a digest on standard output")
        << QStringList({"create", "top.bin", "--output", "-", "--no-companion", "--digest"})
        << "--digest and --json need a file";
    QTest::newRow("JSON and a payload")
        << QStringList({"extract", "top.bin", "--output", "-", "--json"}) << "--json needs a file";
    QTest::newRow("JSON and an image")
        << QStringList({"create", "top.bin", "--output", "-", "--no-companion", "--json"})
        << "--digest and --json need a file";
    QTest::newRow("a stream that gives no name")
        << QStringList({"create", "-", "--output", "-", "--no-companion"})
        << "standard input: --output: gives no name for the header";
}

void CommandLineTest::refusesWrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, text);
    ToolFixture tool;
    tool.makeImage();
    tool.write("TOP.BIN", ToolFixture::payload(100));
    Arguments given;
    for (const QString& argument : arguments)
        given.push_back(tool.exists(argument) ? tool.argument(argument) : argument.toStdString());
    const Run run = tool.run(given);
    QVERIFY2(run.err.startsWith("pelk-fcf: error: ") && run.err.contains(text.toUtf8()), run.err);
    QCOMPARE(run.code, 2);
    if (arguments.contains("--json"))
        QCOMPARE(run.json()["exitCode"].toInt(), 2);
    else
        QCOMPARE(run.out, QByteArray());
}

void CommandLineTest::refusesArgumentsThatAreNoText()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run text = tool.create("top.bin", {}, {{"--description", "gr\xfcn"}});
    QCOMPARE(text.code, 2);
    QVERIFY2(text.err.contains("is not text in the encoding of this locale, UTF-8"), text.err);

    const Run name = tool.run({"create", tool.argument("gr") + "\xfcn.bin"});
    QCOMPARE(name.code, 2);
    QVERIFY2(name.err.contains("BIN: the name is not text in the encoding"), name.err);
    QCOMPARE(tool.run({"show", ""}).code, 2);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void CommandLineTest::refusesAnOptionAsAValue_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("an empty variable")
        << QStringList{"--author", "--strict"}
        << QByteArray("--author lacks a value, as \"--strict\" is an option; to give it as the "
                      "value write --author=--strict");
    QTest::newRow("a function of three texts")
        << QStringList{"--function", "a", "b", "c", "--digest"}
        << QByteArray("--function lacks a value, as \"--digest\" is an option");
    QTest::newRow("help") << QStringList{"--description", "--help"}
                          << QByteArray("--description lacks a value");
}

void CommandLineTest::refusesAnOptionAsAValue()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run =
        tool.run(Arguments{"create", tool.argument("top.bin")} + toArguments(arguments));
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains(message), run.err);
    // As it says.
    const Run taken = tool.run(Arguments{"create", tool.argument("top.bin"), "--author=--strict"} +
                               ToolFixture::describedWithout("--author"));
    QVERIFY2(taken.code == 0, taken.err);
    QVERIFY(tool.read("top.txt").contains("Author: --strict\n"));
}

void CommandLineTest::takesShortNamesOfOptions()
{
    ToolFixture tool;
    tool.makeImage();
    const Arguments extract{"extract", tool.argument("top.fcf"), "-o", tool.argument("out")};
    QCOMPARE(tool.run(extract).code, 0);
    QCOMPARE(tool.run(extract).code, 4);
    QCOMPARE(tool.run(extract + Arguments{"-f", "-q"}).code, 0);
    QCOMPARE(tool.run({"extract", tool.argument("top.fcf"), "-o", "-f"}).code, 2);
}

void CommandLineTest::takesArgumentsForWhatTheyAre()
{
    ToolFixture tool;
    const Arguments first{"--function", "[a,b]", "--forced", "-5", "it's \"q\""};
    QCOMPARE(tool.createTop(first + Arguments{"--function", "{}", "%%", "", "\x01x"}).code, 2);
    QCOMPARE(tool.createTop(first + Arguments{"--function", "{}", "%%", "", "[x]"}).code, 0);
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

void CommandLineTest::takesAnArgumentThatEndsWithAnEqualsSign()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Options note{{"--description", "--note="}};
    const Arguments function{"--function", "--author=", "b=", "c", "d"};
    QCOMPARE(tool.create("top.bin", Arguments{"--author="} + function, note).code, 2);
    QCOMPARE(tool.create("top.bin", function, note).code, 0);
    QVERIFY(tool.read("top.txt").contains("Description: --note=\n"));
    QVERIFY(tool.read("top.txt").contains("Function name: --author=\nFunction author: b=\n"));
    QVERIFY(tool.run({"show", "--", "--json="}).err.contains("--json=: FILE: cannot be read"));
}

void CommandLineTest::takesTheSlotUnderAHiddenNameToo()
{
    ToolFixture tool;
    tool.createTop();
    const Run run = tool.run({"create", tool.argument("top.bin"), "--like",
                              tool.argument("top.fcf"), "--slot", "7", "--force", "--json"});
    QCOMPARE(run.json()["header"].toObject()["configNumber"].toInt(), 7);

    const QByteArray help = tool.run({"create", "--help"}).out;
    QVERIFY(help.contains("--config"));
    QVERIFY2(!help.contains("--slot"), help);
    const Run both = tool.createTop({"--slot", "7", "--force"});
    QCOMPARE(both.code, 2);
    QVERIFY2(both.err.contains("error: --slot is another name of --config: give one of them\n"),
             both.err);
}

ZORV_TEST(CommandLineTest)
#include "CommandLineTest.moc"
