#include "fcf/FcfLayout.h"
#include "support/TestProgram.h"

#include <QtTest>

class FcfLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void numbersFollowOneAnotherWithoutGaps();
    void preambleEndsAtByte64();
    void everyFieldHasItsOwnNameAndAMeaning();
    void endMarkContainsTheRecordMark();
};

void FcfLayoutTest::numbersFollowOneAnotherWithoutGaps()
{
    int offset = 0;
    for (const FcfLayout::NumberField& field : FcfLayout::Numbers) {
        QCOMPARE(field.offset, offset);
        offset += 4;
    }
    QCOMPARE(offset, 44);
}

void FcfLayoutTest::preambleEndsAtByte64() { QCOMPARE(FcfLayout::PreambleBytes, 64); }

void FcfLayoutTest::everyFieldHasItsOwnNameAndAMeaning()
{
    QSet<QString> names;
    const auto take = [&names](const auto& field) {
        names << field.name;
        return qstrlen(field.meaning) > 0;
    };
    for (const auto& field : FcfLayout::Numbers)
        QVERIFY(take(field) && qstrlen(field.unit) > 0);
    for (const auto& field : FcfLayout::HeaderTexts)
        QVERIFY(take(field) && QLatin1String(field.prefix).endsWith(QLatin1String(": ")));
    QCOMPARE(names.size(), FcfLayout::NumberCount + FcfLayout::HeaderTextCount);

    names.clear();
    for (const auto& field : FcfLayout::FunctionTexts)
        QVERIFY(take(field) && QLatin1String(field.prefix).endsWith(QLatin1String(": ")));
    QCOMPARE(names.size(), FcfLayout::FunctionTextCount);
}

void FcfLayoutTest::endMarkContainsTheRecordMark()
{
    QVERIFY(QByteArray(FcfLayout::TextEnd).contains(FcfLayout::RecordEnd));
}

ZORV_TEST(FcfLayoutTest)
#include "FcfLayoutTest.moc"
