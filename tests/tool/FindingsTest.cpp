#include "tool/check/Findings.h"

#include <QtTest>

/// What becomes of the findings of a run.
class FindingsTest : public QObject {
    Q_OBJECT

private slots:
    void endsWithTheCodeThatSaysMost();
    void takesErrorsOfResults();
    void promotesWarningsAndDropsNotes();
    void fitsInOneLine();
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

QTEST_GUILESS_MAIN(FindingsTest)
#include "FindingsTest.moc"
