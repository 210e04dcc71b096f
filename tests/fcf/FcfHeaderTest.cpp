#include "support/SampleHeaders.h"

#include "fcf/FcfLayout.h"

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
    FcfHeader header;
    header.stamp(QDateTime(QDate(2026, 3, 4), QTime(7, 8, 9, 999)));
    QCOMPARE(header.date, QString("4 Mar 2026"));
    QCOMPARE(header.time, QString("07:08:09"));
}

QTEST_GUILESS_MAIN(FcfHeaderTest)
#include "FcfHeaderTest.moc"
