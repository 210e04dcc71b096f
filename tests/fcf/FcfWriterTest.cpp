#include "support/SampleHeaders.h"
#include "support/TestProgram.h"

#include "fcf/FcfDevice.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "support/Golden.h"
#include "support/StubbornDevices.h"

#include <QBuffer>
#include <QTextCodec>
#include <QtTest>

namespace {

const QByteArray FillerUnit = QByteArray::fromHex("C3AFC2BFC2BD");

/// The header page of \p header, filled.
QByteArray pageOf(const FcfHeader& header, const FcfWriter& writer = FcfWriter())
{
    const QByteArray text = writer.compose(header);
    return text + writer.fillerFor(text.size());
}

/// A header whose text ends at byte \p end of the page.
FcfHeader headerEndingAt(int end)
{
    FcfHeader header = headerWithoutFunctions();
    const int missing = end - FcfWriter().compose(header).size();
    header.author += QString(missing, 'x');
    return header;
}

} // namespace

class FcfWriterTest : public QObject {
    Q_OBJECT

private slots:
    void writesTheGoldenPages_data();
    void writesTheGoldenPages();
    void endsThePageWithWholeFillerUnits_data();
    void endsThePageWithWholeFillerUnits();
    void composesMoreThanAPageWhereTheTextIsLonger();
    void endsABuildWithoutFunctionsWithBothMarks();
    void writesWhatIsTypedUntouchedButForTheDescriptions();
    void trimsBlanksThatAreNotAsciiFromADescription();
    void writesThroughTheGivenCodec();
    void writesThroughTheLocalesCodecByItself();
    void leavesByteOrderMarksOut();
    void reportsAFullDeviceAtEveryByteOfThePage();
    void endsOnADeviceThatTakesNothing();
    void writesAllToADeviceThatTakesAByteAtATime();
};

void FcfWriterTest::writesTheGoldenPages_data()
{
    QTest::addColumn<QString>("golden");
    QTest::addColumn<bool>("severalScripts");
    QTest::newRow("no functions") << "goldens/no-functions.golden" << false;
    QTest::newRow("several scripts") << "goldens/several-scripts.golden" << true;
}

void FcfWriterTest::writesTheGoldenPages()
{
    QFETCH(QString, golden);
    QFETCH(bool, severalScripts);
    const FcfHeader header = severalScripts ? headerInSeveralScripts() : headerWithoutFunctions();
    QCOMPARE(Golden(QFINDTESTDATA(golden)).difference(pageOf(header)), QString());
}

void FcfWriterTest::endsThePageWithWholeFillerUnits_data()
{
    QTest::addColumn<int>("textEnd");
    QTest::addColumn<int>("pageEnd");
    QTest::newRow("text fills the page") << 2112 << 2112;
    QTest::newRow("one byte is missing") << 2111 << 2117;
    QTest::newRow("two bytes are missing") << 2110 << 2116;
    QTest::newRow("three bytes are missing") << 2109 << 2115;
    QTest::newRow("four bytes are missing") << 2108 << 2114;
    QTest::newRow("five bytes are missing") << 2107 << 2113;
    QTest::newRow("a unit is missing") << 2106 << 2112;
    QTest::newRow("a unit and a byte are missing") << 2105 << 2117;
}

void FcfWriterTest::endsThePageWithWholeFillerUnits()
{
    QFETCH(int, textEnd);
    QFETCH(int, pageEnd);
    const QByteArray page = pageOf(headerEndingAt(textEnd));
    QCOMPARE(page.size(), pageEnd);
    QVERIFY(page.left(textEnd).endsWith("---\n----\n"));
    QCOMPARE(page.mid(textEnd), FillerUnit.repeated((pageEnd - textEnd) / 6));
}

void FcfWriterTest::composesMoreThanAPageWhereTheTextIsLonger()
{
    const QByteArray page = pageOf(headerEndingAt(2113));
    QCOMPARE(page.size(), 2113);
    QVERIFY(page.endsWith("----\n"));
}

void FcfWriterTest::endsABuildWithoutFunctionsWithBothMarks()
{
    QVERIFY(FcfWriter().compose(headerWithoutFunctions()).endsWith("Front end\n---\n----\n"));
}

void FcfWriterTest::writesWhatIsTypedUntouchedButForTheDescriptions()
{
    FcfHeader header = headerWithoutFunctions();
    header.ciNumber = "  1 ";
    header.author = " a ";
    header.description = "\n  first\n\n last \t\n";
    FcfFunction function;
    function.name = " n ";
    function.author = " m ";
    function.ciNumber = " 2 ";
    function.description = " d\ne ";
    header.functions << function;
    const QByteArray text = FcfWriter().compose(header).mid(64);
    QCOMPARE(text, QByteArray("\nFilename: top.fcf\nCI No:   1 \nAuthor:  a \nDate: 21 Nov 2026\n"
                              "Time: 09:05:07\nDescription: first\n\n last\n---\n"
                              "Function name:  n \nFunction author:  m \nFunction CI No:  2 \n"
                              "Function description: d\ne\n---\n----\n"));
}

void FcfWriterTest::trimsBlanksThatAreNotAsciiFromADescription()
{
    FcfHeader header = headerWithoutFunctions();
    const QString noBreakSpace(QChar(0x00A0));
    const QString wideSpace(QChar(0x3000));
    header.description = noBreakSpace + "first" + noBreakSpace + "end" + wideSpace;
    const QString expected = "Description: first" + noBreakSpace + "end\n---\n";
    const QByteArray text = FcfWriter().compose(header);
    QVERIFY2(text.contains(expected.toUtf8()), text.mid(64));
}

void FcfWriterTest::writesThroughTheGivenCodec()
{
    FcfHeader header = headerWithoutFunctions();
    header.author = QString::fromUtf8("Zoë");
    const FcfWriter writer(QTextCodec::codecForName("ISO 8859-1"));
    const QByteArray page = pageOf(header, writer);
    QVERIFY(page.contains("Author: Zo\xEB\n"));
    QVERIFY(page.endsWith("----\n" + QByteArray::fromHex("EFBFBD").repeated(646)));
    QCOMPARE(page.size(), 2113);
}

void FcfWriterTest::writesThroughTheLocalesCodecByItself()
{
    FcfHeader header = headerWithoutFunctions();
    header.author = QString::fromUtf8("Zoë");
    QTextCodec* const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO 8859-1"));
    const QByteArray text = FcfWriter().compose(header);
    QTextCodec::setCodecForLocale(before);
    QVERIFY2(text.contains("Author: Zo\xEB\n"), text.mid(64));
}

void FcfWriterTest::leavesByteOrderMarksOut()
{
    const FcfWriter writer(QTextCodec::codecForName("UTF-16"));
    const QByteArray text = writer.compose(headerWithoutFunctions()).mid(64, 4);
    QCOMPARE(text, QByteArray(reinterpret_cast<const char*>(u"\nF"), 4));
}

void FcfWriterTest::reportsAFullDeviceAtEveryByteOfThePage()
{
    const QByteArray page = pageOf(headerInSeveralScripts());
    for (int limit = 0; limit < page.size(); ++limit) {
        LimitedSink sink(limit, LimitedSink::Fails);
        QString error;
        QVERIFY(!FcfDevice::writeAll(&sink, page, &error));
        QCOMPARE(error, QString("No space left on device"));
        QCOMPARE(sink.bytes(), page.left(limit));
    }
    LimitedSink sink(page.size(), LimitedSink::Fails);
    QString error;
    QVERIFY(FcfDevice::writeAll(&sink, page, &error));
    QCOMPARE(error, QString());
    QCOMPARE(sink.bytes(), page);
}

void FcfWriterTest::endsOnADeviceThatTakesNothing()
{
    LimitedSink sink(7, LimitedSink::TakesNothing);
    QString error;
    QVERIFY(!FcfDevice::writeAll(&sink, QByteArray(8, 'x'), &error));
    QCOMPARE(error, QString("the device takes no more bytes"));
}

void FcfWriterTest::writesAllToADeviceThatTakesAByteAtATime()
{
    LimitedSink sink(5000, LimitedSink::Fails, 1);
    const QByteArray page = pageOf(headerInSeveralScripts());
    QVERIFY(FcfDevice::writeAll(&sink, page, nullptr));
    QCOMPARE(sink.bytes(), page);
}

ZORV_TEST(FcfWriterTest)
#include "FcfWriterTest.moc"
