#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QLocale>
#include <QtTest>

/// The date and the time in a header.
class TimestampTest : public ProgramTest {
    Q_OBJECT

private slots:
    void takesTheLocalesDateUnlessToldOtherwise();
    void prefersAGivenDateAndTime();
    void givesEqualBytesTwice();
    void writesTheSameEverywhere_data();
    void writesTheSameEverywhere();
    void refusesADateAndTime_data();
    void refusesADateAndTime();
    void refusesAMalformedSourceDateEpoch_data();
    void refusesAMalformedSourceDateEpoch();
};

void TimestampTest::takesTheLocalesDateUnlessToldOtherwise()
{
    ToolFixture tool;
    tool.createTop();
    const QByteArray date =
        QLocale::system().toString(QDate(2024, 5, 31), QLocale::ShortFormat).toUtf8();
    QVERIFY(tool.read("top.txt").contains("\nDate: " + date + "\nTime: 13:45:00\n"));
}

void TimestampTest::prefersAGivenDateAndTime()
{
    ToolFixture tool;
    tool.environment.sourceDateEpoch = "1717163100";
    tool.createTop({"--date-format", "iso", "--date-time", "1999-12-31T23:59:59"});
    QVERIFY(tool.read("top.txt").contains("\nDate: 1999-12-31\nTime: 23:59:59\n"));
    // git log --format=%cI prints it so.
    for (const char* const moment : {"2024-05-31T13:45:01+02:00", "2024-05-31T13:45:01Z"}) {
        tool.createTop({"--date-format", "iso", "--force", "--date-time", moment});
        QVERIFY(tool.read("top.txt").contains("\nDate: 2024-05-31\nTime: 13:45:01\n"));
    }
}

void TimestampTest::givesEqualBytesTwice()
{
    ToolFixture tool;
    tool.environment.sourceDateEpoch = "1717163100";
    tool.createTop();
    const QByteArray first = tool.read("top.fcf");
    tool.environment.clock = [] { return QDateTime({2030, 1, 1}, {0, 0, 0}); };
    QCOMPARE(tool.createTop({"--force"}).code, 0);
    QCOMPARE(tool.read("top.fcf"), first);
}

void TimestampTest::writesTheSameEverywhere_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("moment");
    QTest::newRow("in New York") << "TZ"
                                 << "America/New_York"
                                 << "";
    QTest::newRow("in Arabic") << "LC_ALL"
                               << "ar_SA.UTF-8"
                               << "";
    QTest::newRow("in Persian") << "LC_ALL"
                                << "fa_IR.UTF-8"
                                << "";
    QTest::newRow("in German") << "LC_ALL"
                               << "de_DE.UTF-8"
                               << "";
    QTest::newRow("in an hour that clocks leave out") << "TZ"
                                                      << "EST5EDT,M3.2.0,M11.1.0"
                                                      << "2024-03-10T02:30:00";
}

void TimestampTest::writesTheSameEverywhere()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(QString, moment);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(variable, value);
    environment.insert("SOURCE_DATE_EPOCH", "1717163100");
    QStringList options{"--date-format", "iso"};
    if (!moment.isEmpty())
        options << "--date-time" << moment;

    const Run run = this->run(create(tool, "top.bin", options), {}, environment);
    QVERIFY2(run.code == 0, run.err);
    const QStringList expected =
        (moment.isEmpty() ? QString("2024-05-31T13:45:00") : moment).split('T');
    const QString lines = QString("\nDate: %1\nTime: %2\n").arg(expected[0], expected[1]);
    QVERIFY2(tool.read("top.txt").contains(lines.toUtf8()), tool.read("top.txt"));
}

void TimestampTest::refusesADateAndTime_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("reason");
    for (const char* const moment :
         {"2024-05-31 13:45", "2024-05-31", "2024-05-31T13:45", "2024-05-31T13:45:00z",
          "2024-05-31T13:45:00+0200", "2024-05-31T24:00:00", "2024-05-31T23:59:60",
          "2024-05-31Tgarbage", "2024-05-31T13:45:00 ", "+024-05-31T13:45:00", "2024-5-31T13:45:00",
          "2024-02-30T00:00:00"})
        QTest::newRow(moment) << "--date-time" << moment
                              << QByteArray("is not a date and time like 2024-05-31T13:45:00");
    QTest::newRow("an unknown format") << "--date-format"
                                       << "us" << QByteArray("is neither \"locale\" nor \"iso\"");
}

void TimestampTest::refusesADateAndTime()
{
    QFETCH(QString, option);
    QFETCH(QString, value);
    QFETCH(QByteArray, reason);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const Run run = tool.create("top.bin", toArguments({option, value}));
    QCOMPARE(run.code, 2);
    const QByteArray text =
        "/top.bin: " + option.toUtf8() + ": \"" + value.toUtf8() + "\" " + reason;
    QVERIFY2(run.err.contains(text), run.err);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

void TimestampTest::refusesAMalformedSourceDateEpoch_data()
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

void TimestampTest::refusesAMalformedSourceDateEpoch()
{
    QFETCH(QByteArray, value);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.environment.sourceDateEpoch = value;
    const Run run = tool.create("top.bin", {"--date-time", "2024-05-31T00:00:00"});
    QVERIFY2(run.err.contains("/top.bin: SOURCE_DATE_EPOCH: \""), run.err);
    QVERIFY2(run.err.contains("is not a number of seconds since 1970"), run.err);
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.names(), QStringList("top.bin"));
}

ZORV_TEST(TimestampTest)
#include "TimestampTest.moc"
