#include "ToolFixture.h"

#include "tool/check/Findings.h"
#include "tool/check/NewImageChecker.h"

#include <QDir>
#include <QFile>
#include <QTextCodec>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

/// What create and the other commands refuse, with their text and exit code, and that nothing is
/// touched by it.
class RefusalTest : public QObject {
    Q_OBJECT

private slots:
    void refusesWhatCannotBeBuilt_data();
    void refusesWhatCannotBeBuilt();
    void refusesABinary_data();
    void refusesABinary();
    void knowsTheLargestBinary();
    void refusesALocaleThatHasNoSuchLetter();
    void refusesArgumentsThatAreNoText();
    void namesADescriptionFileThatIsNoText();
    void reportsByHowMuchAHeaderIsTooLong();
    void refusesAnotherBuild_data();
    void refusesAnotherBuild();
    void refusesAMalformedSourceDateEpoch_data();
    void refusesAMalformedSourceDateEpoch();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void reportsARefusalAsJson();
    void namesEveryReasonAtOnce();
};

void RefusalTest::refusesWhatCannotBeBuilt_data()
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
    row("a malformed time", "--date-time", "2024-05-31 13:45", "--date-time: \"2024-05-31 13:45\"");
    for (const char* const moment :
         {"2024-05-31", "2024-05-31T13:45", "2024-05-31T13:45:00z", "2024-05-31T13:45:00+0200",
          "2024-05-31T24:00:00", "2024-05-31T23:59:60", "2024-05-31Tgarbage",
          "2024-05-31T13:45:00 ", "+024-05-31T13:45:00", "2024-5-31T13:45:00"})
        row(moment, "--date-time", moment, "is not a date and time like 2024-05-31T13:45:00");
    row("a day that is not", "--date-time", "2024-02-30T00:00:00", "is not a date and time like");
    row("an unknown date format", "--date-format", "us",
        "--date-format: \"us\" is neither \"locale\" nor \"iso\"");
    row("a missing description file", "--description", "@/no/such/file",
        "/no/such/file: --description: cannot be read");
}

void RefusalTest::refusesWhatCannotBeBuilt()
{
    QFETCH(QString, option);
    QFETCH(QString, value);
    QFETCH(QString, text);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Arguments described = ToolFixture::described();
    const auto given = std::find(described.begin(), described.end(), option.toStdString());
    if (given != described.end())
        *(given + 1) = value.toStdString();
    else
        described = described + Arguments{option.toStdString(), value.toStdString()};

    const Run run = tool.run(Arguments{"create", tool.argument("top.bin")} + described);
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    for (const QByteArray& line : run.err.trimmed().split('\n'))
        QVERIFY2(line.contains(value == "@/no/such/file" ? "/no/such/file: --description: "
                                                         : "/top.bin: "),
                 line);
    QCOMPARE(run.code, value == "@/no/such/file" ? 3 : 2);
    QCOMPARE(run.out, QByteArray());
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void RefusalTest::refusesABinary_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("missing") << "none.bin"
                             << "none.bin: BIN: cannot be read: No such file" << 3;
    QTest::newRow("empty") << "empty.bin"
                           << "empty.bin: binFileSize: the binary is empty" << 2;
    QTest::newRow("a folder") << "folder.bin"
                              << "folder.bin: BIN: cannot be read: it is a folder" << 3;
    QTest::newRow("a device") << "device.bin"
                              << "device.bin: BIN: cannot be read: it is a device" << 3;
    QTest::newRow("a link to nothing") << "link.bin"
                                       << "link.bin: BIN: cannot be read: No such file" << 3;
    QTest::newRow("a link to itself") << "loop.bin"
                                      << "loop.bin: BIN: cannot be read: Too many levels" << 3;
    QTest::newRow("2 GiB less a page") << "huge.bin"
                                       << "huge.bin: binFileSize: the binary is too "
                                          "large: a size field holds no more than "
                                          "2147481535 bytes"
                                       << 2;
    QTest::newRow("a name without .bin")
        << "top.dat"
        << "top.dat: --output: is missing: only a name that ends with .bin" << 2;
    QTest::newRow("standard input without an output")
        << "-"
        << "standard input: --output: is missing" << 2;
}

void RefusalTest::refusesABinary()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(int, code);
    ToolFixture tool;
    tool.in = ToolFixture::payload(100);
    tool.write("top.dat", ToolFixture::payload(100));
    tool.write("empty.bin", QByteArray());
    QVERIFY(QDir().mkdir(tool.path("folder.bin")));
    QVERIFY(QFile::link("/dev/zero", tool.path("device.bin")));
    QVERIFY(QFile::link("nothing", tool.path("link.bin")));
    QVERIFY(QFile::link("loop.bin", tool.path("loop.bin")));
    tool.write("huge.bin", ToolFixture::payload(100));
    QCOMPARE(::truncate(tool.argument("huge.bin").c_str(), 2147483648L - 2112), 0);
    const QStringList before = tool.names();

    const std::string binary = name == "-" ? "-" : tool.argument(name);
    const Run run = tool.run(Arguments{"create", binary, "--force"} + ToolFixture::described());
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    QCOMPARE(run.code, code);
    QCOMPARE(tool.names(), before);
}

void RefusalTest::knowsTheLargestBinary()
{
    Findings findings;
    NewImageChecker(&findings, "a.bin").checkBinarySize(2147483647 - 2112);
    QVERIFY(!findings.hasErrors());
    NewImageChecker(&findings, "a.bin").checkBinarySize(2147483648 - 2112);
    QVERIFY(findings.exitCode() == ExitCode::Refused);
}

void RefusalTest::refusesALocaleThatHasNoSuchLetter()
{
    ToolFixture tool;
    tool.environment.codec = QTextCodec::codecForName("ISO-8859-1");
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write("like.json", "{\"recipe\": 2, \"description\": \"\\u0416\"}");
    Arguments described = ToolFixture::described();
    described.resize(described.size() - 2);
    const Run run = tool.run(
        Arguments{"create", tool.argument("top.bin"), "--like", tool.argument("like.json")} +
        described);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("description: cannot be encoded in this locale's ISO-8859-1"),
             run.err);
    QCOMPARE(tool.names(), QStringList({"like.json", "top.bin"}));
}

void RefusalTest::refusesArgumentsThatAreNoText()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Arguments described = ToolFixture::described();
    described.back() = "gr\xfcn";
    const Run text = tool.run(Arguments{"create", tool.argument("top.bin")} + described);
    QCOMPARE(text.code, 2);
    QVERIFY2(text.err.contains("is not text in the encoding of this locale, UTF-8"), text.err);

    const Run name = tool.run({"create", tool.argument("gr") + "\xfcn.bin"});
    QCOMPARE(name.code, 2);
    QVERIFY2(name.err.contains("BIN: the name is not text in the encoding"), name.err);
    QCOMPARE(tool.run({"show", ""}).code, 2);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void RefusalTest::namesADescriptionFileThatIsNoText()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write("notes", "gr\xfcn");
    Arguments described = ToolFixture::described();
    described.back() = "@" + tool.argument("notes");
    const Run run = tool.run(Arguments{"create", tool.argument("top.bin")} + described);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("error: " + tool.path("notes").toUtf8() +
                              ": --description: is not text in the encoding of this locale, "
                              "UTF-8\n"),
             run.err);

    tool.write("like.json", "{\"recipe\": 2, \"descriptionFile\": \"notes\"}");
    described.resize(described.size() - 2);
    const Run like = tool.run(
        Arguments{"create", tool.argument("top.bin"), "--like", tool.argument("like.json")} +
        described);
    QCOMPARE(like.code, 2);
    QVERIFY2(like.err.contains("error: " + tool.path("notes").toUtf8() + ": descriptionFile: is "),
             like.err);
}

void RefusalTest::reportsByHowMuchAHeaderIsTooLong()
{
    ToolFixture tool;
    tool.makeImage();
    const int used = tool.read("top.txt").indexOf("----\n") + 5;
    const QByteArray before = tool.read("top.fcf");
    Arguments described = ToolFixture::described();
    // A letter of two bytes each.
    for (int count = (2112 - used) / 2 + 1; count > 0; --count)
        described.back() += "ä";
    const int excess = used + 2 * ((2112 - used) / 2 + 1) - 2112;
    const Run run = tool.run(Arguments{"create", tool.argument("top.bin"), "--force"} + described);
    QCOMPARE(run.code, 2);
    // Labels and line feeds included.
    const int description = 14 + 5 + 2 * ((2112 - used) / 2 + 1);
    const QByteArray text =
        "the header is too long by " + QByteArray::number(excess) + " bytes: of its " +
        QByteArray::number(2112 + excess) + ", labels included, description has " +
        QByteArray::number(description) + ", fileName has 18, date has 18 and the rest " +
        QByteArray::number(2112 + excess - description - 18 - 18) + "\n";
    QVERIFY2(run.err.contains(text), run.err);
    QCOMPARE(tool.read("top.fcf"), before);
}

void RefusalTest::refusesAnotherBuild_data()
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

void RefusalTest::refusesAnotherBuild()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write(name, bytes);
    Arguments described = ToolFixture::described();
    described.erase(described.begin(), described.begin() + 2);
    // One that is given would go before that of a recipe.
    if (bytes.contains("-1"))
        described.erase(described.begin() + 8, described.begin() + 10);
    const Run run = tool.run(
        Arguments{"create", tool.argument("top.bin"), "--like", tool.argument(name)} + described);
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    QVERIFY2(run.err.contains('/' + name.toUtf8() + ": "), run.err);
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.names().size(), 2);
}

void RefusalTest::refusesAMalformedSourceDateEpoch_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("a date") << QByteArray("2024-05-31");
    QTest::newRow("negative") << QByteArray("-1");
    QTest::newRow("with a blank") << QByteArray("1 ");
    QTest::newRow("with a line feed") << QByteArray("1\n");
    QTest::newRow("after the year 9999") << QByteArray("253402300800");
    QTest::newRow("beyond 64 bits") << QByteArray("99999999999999999999");
}

void RefusalTest::refusesAMalformedSourceDateEpoch()
{
    QFETCH(QByteArray, value);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.environment.sourceDateEpoch = value;
    const Run run = tool.run(
        Arguments{"create", tool.argument("top.bin"), "--date-time", "2024-05-31T00:00:00"} +
        ToolFixture::described());
    QVERIFY2(run.err.contains("/top.bin: SOURCE_DATE_EPOCH: \""), run.err);
    QVERIFY2(run.err.contains("is not a number of seconds since 1970"), run.err);
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void RefusalTest::refusesWrongUsage_data()
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

void RefusalTest::refusesWrongUsage()
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

void RefusalTest::reportsARefusalAsJson()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Run run = tool.run({"create", tool.argument("top.bin"), "--json"});
    QCOMPARE(run.json()["exitCode"].toInt(), 2);
    const QJsonObject finding = run.finding("author");
    QCOMPARE(finding["severity"].toString(), QString("error"));
    QCOMPARE(finding["file"].toString(), tool.path("top.bin"));
    QCOMPARE(finding["reason"].toString(), QString("is missing: give --author"));
    run = tool.run({"create", "--json", "--nonsense"});
    QCOMPARE(run.json()["exitCode"].toInt(), 2);
    QCOMPARE(run.json()["schema"].toInt(), 2);
}

void RefusalTest::namesEveryReasonAtOnce()
{
    ToolFixture tool;
    tool.write("empty.bin", QByteArray());
    tool.write("empty.fcf", "old");
    const Run run = tool.run({"create", tool.argument("empty.bin"), "--author", "A\nB", "--module",
                              "X", "--config", "12", "--json"});
    for (const char* const field :
         {"author", "ciNumber", "module", "configNumber", "version", "binFileSize", "--output"})
        QVERIFY2(!run.finding(field).isEmpty(), field);
    QCOMPARE(run.code, 2);
}

QTEST_GUILESS_MAIN(RefusalTest)
#include "RefusalTest.moc"
