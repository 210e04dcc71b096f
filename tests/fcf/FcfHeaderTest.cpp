#include "support/SampleHeaders.h"
#include "support/TestProgram.h"

#include "fcf/FcfLayout.h"

#include <QCoreApplication>
#include <QLocale>
#include <QtTest>

class FcfHeaderTest : public QObject {
    Q_OBJECT

private slots:
    void equalContentIsEqual();
    void headersDifferInEachNumber();
    void headersDifferInEachText();
    void headersDifferInTheirFunctions();
    void functionsDifferInEachText();
    void isStampedWithTheLocalesDateAndPlainTime();
};

void FcfHeaderTest::equalContentIsEqual()
{
    QVERIFY(headerInSeveralScripts() == headerInSeveralScripts());
    QVERIFY(!(headerInSeveralScripts() != headerInSeveralScripts()));
}

void FcfHeaderTest::headersDifferInEachNumber()
{
    const FcfHeader header = headerWithoutFunctions();
    qint32 FcfHeader::*const numbers[] = {
        &FcfHeader::totalPages,   &FcfHeader::totalBlocks, &FcfHeader::totalSize,
        &FcfHeader::binPages,     &FcfHeader::binBlocks,   &FcfHeader::binFileSize,
        &FcfHeader::moduleCode,   &FcfHeader::deviceCode,  &FcfHeader::configNumber,
        &FcfHeader::versionMajor, &FcfHeader::versionMinor};
    for (const auto number : numbers) {
        FcfHeader other = header;
        ++(other.*number);
        QVERIFY(other != header);
    }
}

void FcfHeaderTest::headersDifferInEachText()
{
    const FcfHeader header = headerWithoutFunctions();
    for (QString FcfHeader::*text : {&FcfHeader::fileName, &FcfHeader::ciNumber, &FcfHeader::author,
                                     &FcfHeader::date, &FcfHeader::time, &FcfHeader::description}) {
        FcfHeader other = header;
        other.*text += ' ';
        QVERIFY(other != header);
    }
}

void FcfHeaderTest::headersDifferInTheirFunctions()
{
    const FcfHeader header = headerInSeveralScripts();
    FcfHeader fewer = header;
    fewer.functions.removeLast();
    QVERIFY(fewer != header);
    FcfHeader swapped = header;
    swapped.functions.move(0, 1);
    QVERIFY(swapped != header);
}

void FcfHeaderTest::functionsDifferInEachText()
{
    const FcfFunction function = headerInSeveralScripts().functions.first();
    for (QString FcfFunction::*text : {&FcfFunction::name, &FcfFunction::author,
                                       &FcfFunction::ciNumber, &FcfFunction::description}) {
        FcfFunction other = function;
        QVERIFY(other == function);
        other.*text += ' ';
        QVERIFY(other != function);
    }
}

void FcfHeaderTest::isStampedWithTheLocalesDateAndPlainTime()
{
    const QDate date(2026, 3, 4);
    const QString expected = QLocale("ar_EG").toString(date, QLocale::ShortFormat);
    QVERIFY(expected != QLocale::c().toString(date, QLocale::ShortFormat));
    const QDateTime moment(date, QTime(22, 8, 9, 999));
    QVERIFY(moment.toUTC().date() != date);

    FcfHeader header;
    header.stamp(moment);
    QCOMPARE(header.date, expected);
    QCOMPARE(header.time, QString("22:08:09"));
}

ZORV_TEST_MAIN(FcfHeaderTest)
{
    // A locale with digits of its own, and a zone where it is another day than in UTC.
    qunsetenv("LC_ALL");
    for (const char* category : {"LC_TIME", "LC_NUMERIC"})
        qputenv(category, "ar_EG.UTF-8");
    qputenv("TZ", "America/St_Johns");
    const QCoreApplication application(argc, argv);
    FcfHeaderTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "FcfHeaderTest.moc"
