#include "support/SampleHeaders.h"
#include "support/TestProgram.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfReader.h"
#include "fcf/FcfWriter.h"
#include "support/Golden.h"
#include "support/StubbornDevices.h"

#include <QBuffer>
#include <QtTest>

namespace {

QByteArray written(const FcfHeader& header) { return FcfWriter().compose(header); }

FcfReading readingOf(QByteArray bytes)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return FcfReader::read(&device);
}

/// A header page's start up to and including the line feed at byte 64.
QByteArray preamble() { return written(FcfHeader()).left(65); }

/// What is read back from a text of these lines.
FcfReading readingOfLines(const QList<QByteArray>& lines)
{
    return readingOf(preamble() + lines.join('\n') + '\n');
}

QByteArray headerLines(const QByteArray& description)
{
    return "Filename: f\nCI No: c\nAuthor: a\nDate: d\nTime: t\nDescription: " + description;
}

} // namespace

Q_DECLARE_METATYPE(FcfHeader)

class FcfReaderTest : public QObject {
    Q_OBJECT

private slots:
    void readsBackWhatWasWritten_data();
    void readsBackWhatWasWritten();
    void readsTheGoldenPageOfSeveralScripts();
    void leavesThePayloadAlone();
    void keepsACarriageReturnInANumber();
    void takesLinesWithCarriageReturns();
    void takesAValueUpToItsSecondSeparator();
    void takesALineWithoutItsSeparatorForAnEmptyText();
    void trimsSomeValuesAndNotOthers();
    void trimsBlanksThatAreNotAscii();
    void takesTheKeywordAnywhereInTheFirstLine();
    void takesADescriptionBehindAColonAlone();
    void readsADescriptionOfSeveralLinesAsLines();
    void keepsTheEmptyLinesOfADescription();
    void joinsTheLinesOfAFunctionsDescription();
    void endsADescriptionAtThreeHyphensAnywhere();
    void endsTheListAtFourHyphensInAName();
    void refusesATextWithoutAFilenameLine();
    void keepsTheNumbersOfATextWithoutAFilenameLine();
    void takesMissingNumbersForZero();
    void saysHowFarItCameForACutAtEveryByte();
    void endsWhereADeviceFailsAtEveryByte();
    void endsAtItsBound_data();
    void endsAtItsBound();
    void takesABoundedNumberOfFunctions();
    void readsATextUpToItsBound();
};

void FcfReaderTest::readsBackWhatWasWritten_data()
{
    QTest::addColumn<FcfHeader>("header");
    QTest::newRow("no functions") << headerWithoutFunctions();

    FcfHeader header = headerWithoutFunctions();
    header.totalPages = -1;
    header.totalSize = std::numeric_limits<qint32>::min();
    header.binFileSize = std::numeric_limits<qint32>::max();
    header.moduleCode = 0x0A0D0A0D;
    QTest::newRow("any numbers") << header;

    header = headerWithoutFunctions();
    header.ciNumber.clear();
    header.author.clear();
    header.description.clear();
    QTest::newRow("empty texts") << header;

    header = headerWithoutFunctions();
    header.author = QString::fromUtf8("Ольга مبيكي 雷达 🛰");
    header.description = QString::fromUtf8("Übung\n<b>&amp;</b>\n\n  indented \"quote\"");
    QTest::newRow("several scripts, markup and lines") << header;

    header = headerWithoutFunctions();
    for (int i = 0; i < 20; ++i) {
        FcfFunction function;
        function.name = QString("function %1").arg(i);
        function.author = "a";
        function.description = "d";
        header.functions << function;
    }
    QTest::newRow("twenty functions") << header;
}

void FcfReaderTest::readsBackWhatWasWritten()
{
    QFETCH(FcfHeader, header);
    const FcfReading reading = readingOf(written(header));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    // The blank after the colon is part of the value that is read.
    for (FcfFunction& function : header.functions)
        function.ciNumber.prepend(' ');
    QVERIFY(reading.header == header);
}

void FcfReaderTest::readsTheGoldenPageOfSeveralScripts()
{
    const FcfReading reading =
        readingOf(Golden(QFINDTESTDATA("goldens/several-scripts.golden")).bytes());
    QCOMPARE(reading.outcome, FcfReading::Complete);
    FcfHeader expected = headerInSeveralScripts();
    expected.ciNumber = "7";
    expected.description = QString::fromUtf8("雷达前端\n\n& the last line");
    expected.functions[0].ciNumber = " 42";
    expected.functions[0].description = "Matched filter,1024 taps";
    expected.functions[1].ciNumber = " ";
    QVERIFY(reading.header == expected);
}

void FcfReaderTest::leavesThePayloadAlone()
{
    QByteArray bytes = written(headerWithoutFunctions());
    bytes += FcfWriter().fillerFor(bytes.size());
    EndlessSource image(bytes, "payload\n");
    const FcfReading reading = FcfReader::read(&image);
    QVERIFY(reading.header == headerWithoutFunctions());
    QVERIFY2(image.taken() <= 4096, qPrintable(QString::number(image.taken())));
}

void FcfReaderTest::keepsACarriageReturnInANumber()
{
    FcfHeader header = headerWithoutFunctions();
    header.binPages = 13;
    header.binBlocks = 0x0D0A0D0A;
    QVERIFY(readingOf(written(header)).header == header);
}

void FcfReaderTest::takesLinesWithCarriageReturns()
{
    QByteArray bytes = written(headerInSeveralScripts());
    const QByteArray text = bytes.mid(65).replace("\n", "\r\n");
    const FcfReading reading = readingOf(bytes.left(65) + text);
    QVERIFY(reading.header == readingOf(bytes).header);
}

void FcfReaderTest::takesAValueUpToItsSecondSeparator()
{
    const FcfReading reading = readingOfLines(
        {"Filename: f: g", "CI No: c: 1", "Author: a: b", "Date: d", "Time: t",
         "Description: Rev: B", "---", "Function name: n: o", "Function author: m: p",
         "Function CI No: 4:2", "Function description: x: y", "---", "----"});
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.ciNumber, QString("c"));
    QCOMPARE(reading.header.author, QString("a"));
    QCOMPARE(reading.header.description, QString("Rev"));
    QCOMPARE(reading.header.functions.size(), 1);
    QCOMPARE(reading.header.functions[0].name, QString("n"));
    QCOMPARE(reading.header.functions[0].author, QString("m"));
    QCOMPARE(reading.header.functions[0].ciNumber, QString(" 4"));
    QCOMPARE(reading.header.functions[0].description, QString("x"));
}

void FcfReaderTest::takesALineWithoutItsSeparatorForAnEmptyText()
{
    const FcfReading reading =
        readingOfLines({"Filename", "CI No", "Author:a", "", "", "Description", "---", "name",
                        "author", "CI", "description", "---", "----"});
    QCOMPARE(reading.outcome, FcfReading::Complete);
    FcfHeader expected;
    expected.functions << FcfFunction();
    QVERIFY(reading.header == expected);
    QVERIFY(reading.hasDescription);
}

void FcfReaderTest::trimsSomeValuesAndNotOthers()
{
    const FcfReading reading = readingOfLines(
        {"Filename:  f ", "CI No:  c ", "Author:  a ", "Date:  d ", "Time:  t ", "Description:  e ",
         " second ", "---", "Function name:  n ", "Function author:  m ", "Function CI No:  4 ",
         "Function description:  x ", " y ", "---", "----"});
    FcfHeader expected;
    expected.fileName = "f";
    expected.ciNumber = "c";
    expected.author = "a";
    expected.date = "d";
    expected.time = "t";
    expected.description = "e\n second ";
    FcfFunction function;
    function.name = " n ";
    function.author = "m";
    function.ciNumber = "  4 ";
    function.description = " x  y ";
    expected.functions << function;
    QVERIFY(reading.header == expected);
}

void FcfReaderTest::trimsBlanksThatAreNotAscii()
{
    const QString noBreakSpace(QChar(0x00A0));
    const QString wideSpace(QChar(0x3000));
    const QString author = noBreakSpace + "R." + noBreakSpace + "Vos" + wideSpace;
    const FcfReading reading =
        readingOfLines({"Filename: f", "CI No: c", "Author: " + author.toUtf8(), "Date: d",
                        "Time: t", "Description: d", "---", "----"});
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.author, QString("R." + noBreakSpace + "Vos"));
}

void FcfReaderTest::takesTheKeywordAnywhereInTheFirstLine()
{
    const FcfReading reading = readingOf(preamble() + "The " + headerLines("d\n---\n----\n"));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.fileName, QString("f"));
}

void FcfReaderTest::takesADescriptionBehindAColonAlone()
{
    const FcfReading reading =
        readingOfLines({"Filename: f", "CI No: c", "Author: a", "Date: d", "Time: t",
                        "Description:first", "second", "---", "----"});
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.description, QString("first\nsecond"));
}

void FcfReaderTest::readsADescriptionOfSeveralLinesAsLines()
{
    const FcfReading reading = readingOf(preamble() + headerLines("one\n\nthree\n---\n----\n"));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.description, QString("one\n\nthree"));
}

void FcfReaderTest::keepsTheEmptyLinesOfADescription()
{
    const FcfReading reading = readingOf(preamble() + headerLines("\n\nthird\n\n---\n----\n"));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.description, QString("\n\nthird\n"));
}

void FcfReaderTest::joinsTheLinesOfAFunctionsDescription()
{
    FcfHeader header = headerWithoutFunctions();
    FcfFunction function;
    function.description = "one\ntwo: 2\nthree";
    header.functions << function;
    QCOMPARE(readingOf(written(header)).header.functions.value(0).description,
             QString("onetwo: 2three"));
}

void FcfReaderTest::endsADescriptionAtThreeHyphensAnywhere()
{
    FcfReading reading = readingOf(preamble() + headerLines("one\ntwo --- 2\n----\n"));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.description, QString("one"));

    reading = readingOfLines({headerLines("d\n---"), "Function name: n", "Function author: a",
                              "Function CI No: c", "Function description: x", "y---", "----"});
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.functions.value(0).description, QString("x"));

    // Hyphens in the first line leave no description at all, and the mark is taken for a name.
    reading = readingOf(preamble() + headerLines("one---\n---\na\nc\nd\n---\n----\n"));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QVERIFY(!reading.hasDescription);
    QCOMPARE(reading.header.functions.size(), 1);
}

void FcfReaderTest::endsTheListAtFourHyphensInAName()
{
    FcfHeader header = headerWithoutFunctions();
    FcfFunction function;
    function.name = "first";
    header.functions << function;
    function.name = "a----b";
    header.functions << function;
    const FcfReading reading = readingOf(written(header));
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.functions.size(), 1);
    QCOMPARE(reading.header.functions[0].name, QString("first"));
}

void FcfReaderTest::refusesATextWithoutAFilenameLine()
{
    QCOMPARE(readingOfLines({"filename: f", "----"}).outcome, FcfReading::NoFilenameLine);
    QCOMPARE(readingOfLines({"", "Filename: f", "----"}).outcome, FcfReading::NoFilenameLine);
    QCOMPARE(readingOf(QByteArray(5000, 'x') + "\nno header\n").outcome,
             FcfReading::NoFilenameLine);
}

void FcfReaderTest::keepsTheNumbersOfATextWithoutAFilenameLine()
{
    FcfHeader numbers = headerWithoutFunctions();
    const FcfReading reading = readingOf(written(numbers).left(65) + "something else\n----\n");
    QCOMPARE(reading.outcome, FcfReading::NoFilenameLine);
    QCOMPARE(reading.header.binFileSize, 608324);
    QCOMPARE(reading.header.versionMinor, 7);
    QCOMPARE(reading.header.author, QString());
}

void FcfReaderTest::takesMissingNumbersForZero()
{
    const QByteArray bytes = written(headerWithoutFunctions()).left(10);
    const FcfReading reading = readingOf(bytes);
    QCOMPARE(reading.outcome, FcfReading::NoFilenameLine);
    FcfHeader expected;
    expected.totalPages = 34;
    expected.totalBlocks = 4;
    QVERIFY(reading.header == expected);
}

void FcfReaderTest::saysHowFarItCameForACutAtEveryByte()
{
    const QByteArray whole = written(headerInSeveralScripts());
    const int endMark = whole.size() - 5;
    const int firstFunction = whole.indexOf("Function name");
    const int secondFunction = whole.lastIndexOf("Function name");
    for (int cut = 0; cut < endMark + 4; ++cut) {
        const FcfReading reading = readingOf(whole.left(cut));
        const QByteArray where = "cut at byte " + QByteArray::number(cut);
        if (cut < 65 + 8)
            QVERIFY2(reading.outcome == FcfReading::NoFilenameLine, where);
        else
            QVERIFY2(reading.outcome == FcfReading::EndedEarly, where);
        const int functions = cut <= firstFunction    ? 0
                              : cut <= secondFunction ? 1
                              : cut <= endMark        ? 2
                                                      : 3;
        QVERIFY2(reading.header.functions.size() == functions, where);
    }
    QCOMPARE(readingOf(whole.left(endMark + 4)).outcome, FcfReading::Complete);
}

void FcfReaderTest::endsWhereADeviceFailsAtEveryByte()
{
    const QByteArray whole = written(headerInSeveralScripts());
    for (int failsAt = 0; failsAt < whole.size() - 1; ++failsAt) {
        FailingSource device(whole, failsAt);
        const FcfReading failed = FcfReader::read(&device);
        const FcfReading cut = readingOf(whole.left(failsAt));
        QCOMPARE(failed.outcome,
                 cut.outcome == FcfReading::EndedEarly ? FcfReading::ReadFailed : cut.outcome);
        QVERIFY(failed.header == cut.header);
    }
}

void FcfReaderTest::endsAtItsBound_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("repeated");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<int>("bound");
    const int whole = FcfReader::MaximumBytes;
    const int functions = FcfReader::MaximumFunctionBytes;
    const int tooLong = FcfReading::TooLong;
    // Long enough that it is not their number that ends them.
    const QByteArray function = "name\nauthor\nnumber\na description\nof two lines\n---\n";
    const int functionsTooLong = FcfReading::FunctionsTooLong;
    QTest::newRow("a preamble without end")
        << QByteArray() << QByteArray("x") << int(FcfReading::NoFilenameLine) << whole;
    QTest::newRow("a first line without end")
        << preamble() << QByteArray("Filename") << int(FcfReading::NoFilenameLine) << whole;
    QTest::newRow("an author without end")
        << preamble() + "Filename: f\nCI No: c\nAuthor: " << QByteArray("a") << tooLong << whole;
    QTest::newRow("a description in one endless line")
        << preamble() + headerLines("") << QByteArray("d") << tooLong << whole;
    QTest::newRow("a description of endless lines")
        << preamble() + headerLines("") << QByteArray("d\n") << tooLong << whole;
    QTest::newRow("empty lines for ever")
        << preamble() + headerLines("") << QByteArray("\n") << tooLong << whole;
    QTest::newRow("functions for ever")
        << preamble() + headerLines("d\n---\n") << function << functionsTooLong << functions;
    QTest::newRow("a function description of endless lines")
        << preamble() + headerLines("d\n---\nn\na\nc\n") << QByteArray("d\n") << functionsTooLong
        << functions;
    QTest::newRow("a function name without end")
        << preamble() + headerLines("d\n---\n") << QByteArray("n") << functionsTooLong << functions;
    QTest::newRow("functions for ever after a long description")
        << preamble() + headerLines(QByteArray(whole - functions / 2, 'd') + "\n---\n") << function
        << tooLong << whole;
}

void FcfReaderTest::endsAtItsBound()
{
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, repeated);
    QFETCH(int, bound);
    EndlessSource device(start, repeated);
    const FcfReading reading = FcfReader::read(&device);
    QTEST(int(reading.outcome), "outcome");
    // What was fetched with the header's last lines may be more than that.
    QVERIFY(device.taken() >= bound);
    QVERIFY(device.taken() <= qMin(bound + FcfLayout::PageBytes, FcfReader::MaximumBytes));
}

void FcfReaderTest::takesABoundedNumberOfFunctions()
{
    const QByteArray function = "\n\n\n\n---\n";
    const QByteArray start = preamble() + headerLines("d\n---\n");
    const int most = FcfReader::MaximumFunctions;
    const FcfReading whole = readingOf(start + function.repeated(most) + "----\n");
    QCOMPARE(whole.outcome, FcfReading::Complete);
    QCOMPARE(whole.header.functions.size(), most);
    const FcfReading more = readingOf(start + function.repeated(most + 1) + "----\n");
    QCOMPARE(more.outcome, FcfReading::TooManyFunctions);
    QCOMPARE(more.header.functions.size(), most);
}

void FcfReaderTest::readsATextUpToItsBound()
{
    const QByteArray start = preamble() + headerLines("");
    const QByteArray end = "\n---\n----\n";
    const int room = FcfReader::MaximumBytes - start.size() - end.size();
    const FcfReading reading = readingOf(start + QByteArray(room, 'd') + end + "payload");
    QCOMPARE(reading.outcome, FcfReading::Complete);
    QCOMPARE(reading.header.description.size(), room);
    QCOMPARE(readingOf(start + QByteArray(room + 5, 'd') + end).outcome, FcfReading::TooLong);
}

ZORV_TEST(FcfReaderTest)
#include "FcfReaderTest.moc"
