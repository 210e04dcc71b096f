#include "fcf/FcfExactReader.h"
#include "fcf/FcfWriter.h"
#include "support/TestProgram.h"

#include <QBuffer>
#include <QTextCodec>
#include <QtTest>

namespace {

QTextCodec* utf8() { return QTextCodec::codecForName("UTF-8"); }

FcfExactReading readExactly(QByteArray bytes)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return FcfExactReader::read(&device, utf8());
}

/// Full of what a form loses.
FcfHeader header()
{
    FcfHeader header;
    header.totalSize = 2113;
    header.moduleCode = -1;
    header.versionMinor = 2147483647;
    header.fileName = "a: b: c.fcf";
    header.ciNumber = " 42: ";
    header.author = "Grün";
    header.date = "";
    header.time = "13:45:00";
    header.description = "Rev: B: C\n  Author: D\n\n----not a mark";
    header.functions = {{" f---- ", "", " 7", "one\ntwo\n\nthree"}, {"", "a", "b", ""}};
    return header;
}

} // namespace

/// Exact readings give back what was written, and report where something else is.
class FcfExactReaderTest : public QObject {
    Q_OBJECT

private slots:
    void givesBackWhatWasWritten();
    void findsWhereTextsAre();
    void findsWhereTheTextEnds();
    void findsWhereATextLongerThanAPageIs();
    void takesTheReservedWords();
    void reportsTheFirstDeviation_data();
    void reportsTheFirstDeviation();
    void reportsACharacterThatIsCutOff();
    void endsWithTheDevice();
    void takesNoMoreThanItsBound();
    void leavesThePayloadAlone();
};

void FcfExactReaderTest::givesBackWhatWasWritten()
{
    const FcfExactReading reading = readExactly(FcfWriter(utf8()).compose(header()) + "payload");
    QVERIFY(reading.outcome == FcfExactReading::Complete);
    QVERIFY(reading.header == header());
}

void FcfExactReaderTest::findsWhereTextsAre()
{
    const QByteArray bytes = FcfWriter(utf8()).compose(header());
    const FcfExactReading reading = readExactly(bytes);
    QCOMPARE(reading.spans.size(), 6 + 2 * 4);
    const FcfSpan author = reading.spans.at(2);
    QCOMPARE(author.field, "author");
    QCOMPARE(author.function, -1);
    QVERIFY(bytes.mid(author.offset).startsWith("Grün\n"));
    const FcfSpan ciNumber = reading.spans.at(6 + 4 + 2);
    QCOMPARE(ciNumber.field, "ciNumber");
    QCOMPARE(ciNumber.function, 1);
    QVERIFY(bytes.mid(ciNumber.offset).startsWith("b\nFunction description: \n---\n----\n"));
    const FcfSpan description = reading.spans.at(5);
    QCOMPARE(bytes.mid(description.offset, description.length), header().description.toUtf8());
    QCOMPARE(author.length, 5);
    QCOMPARE(reading.spans.last().length, 0);
}

void FcfExactReaderTest::findsWhereTheTextEnds()
{
    const QByteArray bytes = FcfWriter(utf8()).compose(header());
    QCOMPARE(readExactly(bytes).textEnd, bytes.size());
    QCOMPARE(readExactly(bytes + "\n----\n").textEnd, bytes.size());
}

void FcfExactReaderTest::findsWhereATextLongerThanAPageIs()
{
    FcfHeader longer = header();
    longer.description = QString("a line\n").repeated(1000);
    const QByteArray bytes = FcfWriter(utf8()).compose(longer);
    QVERIFY(bytes.size() > 5000);
    const FcfExactReading reading = readExactly(bytes);
    const FcfSpan name = reading.spans.at(6);
    QCOMPARE(name.field, "name");
    QVERIFY(bytes.mid(name.offset).startsWith(" f---- \nFunction author: "));
    QCOMPARE(reading.textEnd, bytes.size());
}

void FcfExactReaderTest::takesTheReservedWords()
{
    QByteArray bytes = FcfWriter(utf8()).compose(header());
    // A line feed among them does not move what follows.
    bytes.replace(48, 4, "\n\n\n\n");
    const FcfExactReading reading = readExactly(bytes);
    QVERIFY(reading.outcome == FcfExactReading::Complete);
    QCOMPARE(reading.reservedWords,
             QVector<quint32>({0xFFFFFFFF, 0x0A0A0A0A, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}));
}

void FcfExactReaderTest::reportsTheFirstDeviation_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("function");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* before, const char* after, const char* field,
                        int function, const char* expected) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << QByteArray(field)
                            << function << expected;
    };
    row("a prefix", "Author: Grün", "author: Grün", "author", -1, "Author: ");
    row("a prefix of a function", "Function CI No:  7", "Function CI No:", "ciNumber", 0,
        "Function CI No: ");
    row("a line that is missing", "Date: \n", "", "date", -1, "Date: ");
    row("something before a prefix", "Author: Grün", "The Author: Grün", "author", -1, "Author: ");
    row("more than the mark of the end", "\n----\n", "\n---- end\n", "name", 2, "Function name: ");
    row("an early mark", "Author: D\n", "\n---\n", "name", 0, "Function name: ");
    row("a carriage return after a mark", "\n---\n", "\n---\r\n", "description", -1,
        "a line feed without a carriage return at the end of the line");
    row("bytes that are no text", "Gr", "\xff", "author", -1, "text that can be decoded");
}

void FcfExactReaderTest::reportsTheFirstDeviation()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QByteArray, field);
    QFETCH(int, function);
    QFETCH(QString, expected);
    QByteArray bytes = FcfWriter(utf8()).compose(header());
    const int position = bytes.indexOf(before);
    QVERIFY(position > 0);
    const FcfExactReading reading = readExactly(bytes.replace(position, before.size(), after));
    QVERIFY(reading.outcome == FcfExactReading::Deviates);
    QCOMPARE(QByteArray(reading.deviation.field), field);
    QCOMPARE(reading.deviation.function, function);
    QCOMPARE(reading.expected, expected);
    const int offset = reading.deviation.offset;
    QCOMPARE(bytes.at(offset - 1), '\n');
    QCOMPARE(bytes.mid(offset, bytes.indexOf('\n', offset) - offset),
             reading.found.contains(QChar::ReplacementCharacter) ? QByteArray("Author: \xffün")
                                                                 : reading.found.toUtf8());
}

void FcfExactReaderTest::reportsACharacterThatIsCutOff()
{
    QByteArray bytes = FcfWriter(utf8()).compose(header());
    // The first byte of two, before the line feed.
    const int position = bytes.indexOf("ün\n");
    bytes.remove(position + 1, 2);
    const FcfExactReading reading = readExactly(bytes);
    QVERIFY(reading.outcome == FcfExactReading::Deviates);
    QCOMPARE(QByteArray(reading.deviation.field), QByteArray("author"));
    QCOMPARE(reading.expected, QString("text that can be decoded"));
}

void FcfExactReaderTest::endsWithTheDevice()
{
    const QByteArray bytes = FcfWriter(utf8()).compose(header());
    for (int length = 0; length < bytes.size(); ++length) {
        const FcfExactReading reading = readExactly(bytes.left(length));
        QVERIFY2(reading.outcome != FcfExactReading::Complete, qPrintable(QString::number(length)));
    }
    // A number or a reserved word that is cut off is no text.
    for (int length = 0; length <= 65; ++length)
        QVERIFY2(readExactly(bytes.left(length)).outcome == FcfExactReading::NoText,
                 qPrintable(QString::number(length)));
}

void FcfExactReaderTest::takesNoMoreThanItsBound()
{
    FcfHeader endless = header();
    endless.description = QString(FcfExactReader::MaximumBytes, 'x');
    QVERIFY(readExactly(FcfWriter(utf8()).compose(endless)).outcome != FcfExactReading::Complete);
}

void FcfExactReaderTest::leavesThePayloadAlone()
{
    const FcfWriter writer(utf8());
    QByteArray bytes = writer.compose(header());
    bytes += writer.fillerFor(bytes.size()) + QByteArray(100000, 'x');
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    FcfExactReader::read(&device, utf8());
    QCOMPARE(device.pos(), qint64(2112));
}

ZORV_TEST(FcfExactReaderTest)
#include "FcfExactReaderTest.moc"
