#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "tool/base/Text.h"
#include "tool/check/Findings.h"

#include <QJsonArray>
#include <QtTest>

/// What becomes of the findings of a run, and how it reports them.
class FindingsTest : public QObject {
    Q_OBJECT

private slots:
    void endsWithTheCodeThatSaysMost();
    void takesErrorsOfResults();
    void promotesWarningsAndDropsNotes();
    void fitsInOneLine();
    void takesWarningsForErrorsWhenStrict();
    void reportsARefusalAsJson();
    void reportsWrongUsageAsJson();
    void givesResultsAndWarningsWhenQuiet();
    void givesEveryResultWhenQuiet();
    void leavesNotesOutOfJsonWhenItIsToBeQuiet();
    void escapesWhatIsNotPrintableInJson();
};

void FindingsTest::endsWithTheCodeThatSaysMost()
{
    Findings findings;
    const auto add = [&findings](ExitCode code) {
        findings.error(code, "file", "field", "reason");
        return findings.exitCode();
    };
    QVERIFY(findings.exitCode() == ExitCode::Done);
    QVERIFY(add(ExitCode::NotValid) == ExitCode::NotValid);
    QVERIFY(add(ExitCode::OutputExists) == ExitCode::OutputExists);
    QVERIFY(add(ExitCode::CannotAccess) == ExitCode::CannotAccess);
    QVERIFY(add(ExitCode::Refused) == ExitCode::Refused);
    QVERIFY(add(ExitCode::NotValid) == ExitCode::Refused);
    QVERIFY(findings.exitCode(4) == ExitCode::NotValid);
}

void FindingsTest::takesErrorsOfResults()
{
    Findings findings;
    findings.setSubject("subject");
    QCOMPARE(findings.valueOf(Result<int>(5)).value_or(0), 5);
    QVERIFY(findings.accept(Status()));
    QVERIFY(findings.list().isEmpty());
    QVERIFY(!findings.accept(failure(ExitCode::Refused, QString(), "field", "reason")));
    QCOMPARE(findings.list().first().file, QString("subject"));
}

void FindingsTest::promotesWarningsAndDropsNotes()
{
    Findings findings;
    findings.warning("file", "field", "reason");
    findings.note("file", "field", "reason");
    QVERIFY(!findings.hasErrors());
    findings.dropNotes();
    QCOMPARE(findings.list().size(), 1);
    findings.promoteWarnings();
    QVERIFY(findings.exitCode() == ExitCode::Refused);
}

void FindingsTest::fitsInOneLine()
{
    Finding finding;
    finding.file = "a\nb";
    finding.field = "field";
    finding.reason = "reason";
    finding.at(7).comparing("one", QString(200, 'x') + "\x1b");
    QCOMPARE(finding.text(), "error: a\\nb: field at offset 7: reason; expected one, found " +
                                 QString(64, 'x') + "...");
    QCOMPARE(finding.toJson()["offset"].toInt(), 7);
}

void FindingsTest::takesWarningsForErrorsWhenStrict()
{
    ToolFixture tool;
    const Run run = tool.createTop({"--strict", "--function", "", "a", "b", "c"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("error: " + tool.path("top.bin").toUtf8() +
                              ": functions[0].name: is empty"),
             run.err);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void FindingsTest::reportsARefusalAsJson()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run = tool.run({"create", tool.argument("top.bin"), "--json"});
    QCOMPARE(run.json()["exitCode"].toInt(), 2);
    const QJsonObject finding = run.finding("author");
    QCOMPARE(finding["severity"].toString(), QString("error"));
    QCOMPARE(finding["file"].toString(), tool.path("top.bin"));
    QCOMPARE(finding["reason"].toString(), QString("is missing: give --author"));
}

void FindingsTest::reportsWrongUsageAsJson()
{
    ToolFixture tool;
    for (const char* const command :
         {"create", "diff", "extract", "list", "recipe", "show", "verify"}) {
        const QJsonObject json = tool.run({command, "--json", "--nonsense"}).json();
        QCOMPARE(json["command"].toString(), QString(command));
        QCOMPARE(json["schema"].toInt(), 2);
        QCOMPARE(json["exitCode"].toInt(), 2);
        QCOMPARE(json["findings"].toArray().size(), 1);
    }
}

void FindingsTest::givesResultsAndWarningsWhenQuiet()
{
    ToolFixture tool;
    tool.write("top.bin", "not a bitstream");
    const Run run = tool.create("top.bin", {"--quiet"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, QByteArray::fromStdString(tool.argument("top.fcf") + '\n' +
                                                tool.argument("top.txt") + '\n'));
    QVERIFY2(run.err.contains("warning: "), run.err);
    QCOMPARE(run.err.count('\n'), 1);
    QVERIFY(tool.run({"create", tool.argument("top.bin"), "--quiet"}).err.contains("error: "));
}

void FindingsTest::givesEveryResultWhenQuiet()
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

void FindingsTest::leavesNotesOutOfJsonWhenItIsToBeQuiet()
{
    ToolFixture tool;
    tool.makeImage();
    const Arguments arguments{"verify", tool.argument("top.fcf"), "--json"};
    QVERIFY(!tool.run(arguments).json()["findings"].toArray().isEmpty());
    QVERIFY(tool.run(arguments + Arguments{"--quiet"}).json()["findings"].toArray().isEmpty());
}

void FindingsTest::escapesWhatIsNotPrintableInJson()
{
    ToolFixture tool;
    ForgedImage image;
    image.text.replace("Ann", "A\u0085\u202en\U000e0041\u3164z");
    tool.write("top.fcf", image.bytes());
    for (const char* const command : {"show", "recipe", "verify"}) {
        const Run run = tool.run({command, tool.argument("top.fcf"), "--json"});
        for (const char32_t character : QString::fromUtf8(run.out + run.err).toUcs4())
            QVERIFY2(isPrintable(character) || character == '\n', run.out);
        QVERIFY(!run.json().isEmpty());
    }
    const QJsonObject header =
        tool.run({"show", tool.argument("top.fcf"), "--json"}).firstFile()["header"].toObject();
    QCOMPARE(header["author"].toString(), QString::fromUtf8("A\u0085\u202en\U000e0041\u3164z"));

    // A control character makes an image invalid, of which there is no recipe.
    image.text.replace("\u0085", "");
    tool.write("top.fcf", image.bytes());
    const Run recipe = tool.run({"recipe", tool.argument("top.fcf")});
    QVERIFY2(recipe.out.contains("A\\u202en\\udb40\\udc41\\u3164z"), recipe.out);
}

ZORV_TEST(FindingsTest)
#include "FindingsTest.moc"
