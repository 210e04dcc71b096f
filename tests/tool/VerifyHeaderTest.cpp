#include "support/TestProgram.h"
#include "VerifyingTest.h"

#include <QJsonArray>
#include <QtTest>

/// What verify finds in header pages that are not what they should be.
class VerifyHeaderTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init() { m_tool.clear(); }
    void findsEachFlippedBitOfANumber_data();
    void findsEachFlippedBitOfANumber();
    void findsEachFlippedBitOfAReservedWord();
    void findsEachFlippedBitOfTheLineFeed();
    void findsEachFlippedBitOfTheFiller();
    void namesEachSizeThatDisagreesWithTheOthers();
    void findsCodesOutOfRange_data();
    void findsCodesOutOfRange();
    void findsANegativeVersion();
    void notesAFunctionThatIsPartOfAText_data();
    void notesAFunctionThatIsPartOfAText();
    void findsTextsThatAreNotWellFormed_data();
    void findsTextsThatAreNotWellFormed();
    void findsATextBeyondThePage();
    void saysNothingOfAPageThatIsLongerThanOne();
};

void VerifyHeaderTest::findsEachFlippedBitOfANumber_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("field");
    const char* const fields[] = {"totalPages", "totalBlocks", "totalSize", "binPages",
                                  "binBlocks",  "binFileSize", "moduleCode"};
    for (int index = 0; index < 7; ++index)
        QTest::newRow(fields[index]) << index << QString(fields[index]);
}

void VerifyHeaderTest::findsEachFlippedBitOfANumber()
{
    QFETCH(int, index);
    QFETCH(QString, field);
    const ForgedImage right;
    for (int bit = 0; bit < 32; ++bit) {
        ForgedImage image;
        image.numbers[index] ^= static_cast<qint32>(1u << bit);
        const QString expected =
            field == "moduleCode" ? "1 or 2" : QString::number(right.numbers[index]);
        // Device 1 belongs to module 2 just as well, but no single bit leads from 1 to 2.
        checkFinding(verify(image),
                     {field, 4 * index, expected, QString::number(image.numbers[index])});
        // A companion alone shows it too, but for what its own numbers agree on.
        m_tool.write("top.txt", image.page());
        QCOMPARE(m_tool.run({"verify", m_tool.argument("top.txt")}).code, 1);
    }
}

void VerifyHeaderTest::findsEachFlippedBitOfAReservedWord()
{
    for (int bit = 0; bit < 5 * 32; ++bit) {
        ForgedImage image;
        quint32& word = image.reserved[bit / 32];
        word ^= 1u << (bit % 32);
        checkFinding(verify(image), {QString("reserved[%1]").arg(bit / 32), 44 + 4 * (bit / 32),
                                     "0xFFFFFFFF", "0x" + QString::number(word, 16).toUpper()});
    }
}

void VerifyHeaderTest::findsEachFlippedBitOfTheLineFeed()
{
    for (int bit = 0; bit < 8; ++bit) {
        ForgedImage image;
        image.lineFeed[0] = static_cast<char>('\n' ^ (1 << bit));
        const Run run = verify(image);
        QCOMPARE(run.code, 1);
        QCOMPARE(run.finding("text")["offset"].toInt(), 64);
    }
}

void VerifyHeaderTest::findsEachFlippedBitOfTheFiller()
{
    const ForgedImage image;
    const int fillerStart = 65 + image.text.size();
    QByteArray bytes = image.bytes();
    for (int offset = fillerStart; offset < image.page().size(); ++offset) {
        const char right = bytes.at(offset);
        bytes[offset] = static_cast<char>(right ^ (1 << (offset % 8)));
        checkFinding(verifyBytes(bytes),
                     {"filler", offset, hexByte(right), hexByte(bytes.at(offset))});
        bytes[offset] = right;
        if (QTest::currentTestFailed())
            return;
    }
}

void VerifyHeaderTest::namesEachSizeThatDisagreesWithTheOthers()
{
    ForgedImage image;
    image.payload.chop(1);
    image.numbers[0] = 5;
    const QList<QJsonObject> errors = errorsOf(verify(image));
    QStringList fields;
    for (const QJsonObject& error : errors)
        fields << error["field"].toString();
    QCOMPARE(fields, QStringList({"totalPages", "totalSize", "binFileSize"}));
    QCOMPARE(errors[0]["reason"].toString(),
             QString("does not agree with a payload of 3999 bytes"));
}

void VerifyHeaderTest::findsCodesOutOfRange_data()
{
    QTest::addColumn<int>("module");
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QString>("field");
    QTest::newRow("DFE without a device") << 1 << 0 << 1 << "deviceCode";
    QTest::newRow("a device that DFE has not") << 1 << 8 << 1 << "deviceCode";
    QTest::newRow("two device bits") << 2 << 3 << 1 << "deviceCode";
    QTest::newRow("a further device bit") << 2 << 16 << 1 << "deviceCode";
    QTest::newRow("a negative device") << 2 << -1 << 1 << "deviceCode";
    QTest::newRow("no slot") << 2 << 8 << 0 << "configNumber";
    QTest::newRow("slot 11") << 2 << 0 << 11 << "configNumber";
    QTest::newRow("a negative slot") << 1 << 4 << -1 << "configNumber";
    QTest::newRow("module 0") << 0 << 1 << 1 << "moduleCode";
    QTest::newRow("module 3") << 3 << 1 << 1 << "moduleCode";
    for (const int device : {1, 2, 4})
        QTest::addRow("DFE device %d is right", device) << 1 << device << 10 << "";
    for (const int device : {0, 1, 2, 4, 8})
        QTest::addRow("module 2 device %d is right", device) << 2 << device << 5 << "";
}

void VerifyHeaderTest::findsCodesOutOfRange()
{
    QFETCH(int, module);
    QFETCH(int, device);
    QFETCH(int, slot);
    QFETCH(QString, field);
    ForgedImage image;
    image.numbers[6] = module;
    image.numbers[7] = device;
    image.numbers[8] = slot;
    const Run run = verify(image);
    QCOMPARE(run.code, field.isEmpty() ? 0 : 1);
    if (!field.isEmpty())
        QCOMPARE(run.finding(field)["severity"].toString(), QString("error"));
}

void VerifyHeaderTest::findsANegativeVersion()
{
    for (const int index : {9, 10}) {
        ForgedImage image;
        image.numbers[index] = -3;
        checkFinding(verify(image),
                     {index == 9 ? "versionMajor" : "versionMinor", 4 * index, "0 or more", "-3"});
    }
}

void VerifyHeaderTest::notesAFunctionThatIsPartOfAText_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("first");
    QTest::newRow("of the description") << "description" << true;
    QTest::newRow("of a function before it") << "functions[0].description" << false;
}

void VerifyHeaderTest::notesAFunctionThatIsPartOfAText()
{
    QFETCH(QString, field);
    QFETCH(bool, first);
    ForgedImage image;
    const QByteArray function = "Function name: a\nFunction author: b\nFunction CI No: c\n"
                                "Function description: d\n---\n";
    image.text.replace("----\n", function + "----\n");
    const int mark =
        first ? image.text.indexOf("---\n") : image.text.indexOf("---\nFunction name: a");
    // One bit of the mark is another one.
    image.text[mark] = static_cast<char>(image.text.at(mark) ^ 1);
    const Run run = verify(image);
    QCOMPARE(run.code, 0);
    QCOMPARE(run.finding(field)["severity"].toString(), QString("note"));
}

void VerifyHeaderTest::findsTextsThatAreNotWellFormed_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("field");
    const auto row = [](const char* name, const char* before, const char* after,
                        const char* field) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << QString(field);
    };
    row("another first line", "Filename", "Filenom", "fileName");
    row("a first line that has only the keyword", "Filename", " Filename", "fileName");
    row("a prefix without its blank", "CI No: 42", "CI No:42", "ciNumber");
    row("a missing line", "Author: Ann\n", "", "author");
    row("a line too many", "Author: Ann\n", "Author: Ann\nMore\n", "date");
    row("lines in another order", "Author: Ann\nDate: 31 May 2024\n",
        "Date: 31 May 2024\nAuthor: Ann\n", "author");
    row("a carriage return", "Author: Ann\n", "Author: Ann\r\n", "author");
    row("a control character", "Ann", "A\x1bn", "author");
    row("bytes that are no text", "Ann", "A\xffn", "author");
    row("bytes that are no text in a second line", "Rev B", "Rev B\n\xc3", "description");
    row("a time of 60 minutes", "13:45:00", "13:60:00", "time");
    row("a time of 24 hours", "13:45:00", "24:00:00", "time");
    row("a time of 29 hours", "13:45:00", "29:59:59", "time");
    row("a time with a blank", "13:45:00", "13:45:00 ", "time");
    row("a mark inside a description", "Rev B", "Rev --- B", "description");
    row("a mark inside a function's name", "fft", "f----t", "functions[0].name");
    row("a mark too early", "Rev B\n", "Rev B\n---\n", "functions[0].name");
    row("a function without its author", "Function author: Bob\n", "", "functions[0].author");
    row("a function without its mark", "Spectrum\n---\n", "Spectrum\n", "functions[0].description");
    row("no end mark", "----\n", "", "functions[1].name");
    row("an end mark with a blank", "----\n", "---- \n", "functions[1].name");
    row("blanks that no writer leaves", "Rev B", " Rev B", "text");
}

void VerifyHeaderTest::findsTextsThatAreNotWellFormed()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, field);
    ForgedImage image;
    const int position =
        before == "----\n" ? image.text.lastIndexOf(before) : image.text.indexOf(before);
    image.text.replace(position, before.size(), after);
    const Run run = verify(image);
    QCOMPARE(run.code, 1);
    const QJsonObject finding = run.finding(field);
    QVERIFY2(!finding.isEmpty(), run.out);
    QVERIFY2(finding["offset"].toInt() >= 65, run.out);
    QVERIFY2(!finding["expected"].toString().isEmpty(), run.out);
    QVERIFY2(finding.contains("found"), run.out);
}

void VerifyHeaderTest::findsATextBeyondThePage()
{
    ForgedImage image;
    image.text.replace("Rev B", QByteArray(2100, 'x'));
    const Run run = verify(image);
    QCOMPARE(run.code, 1);
    const QJsonObject finding = run.finding("text");
    QCOMPARE(finding["offset"].toInt(), 2112);
    QCOMPARE(finding["expected"].toString(), QString("2112 bytes"));
    QCOMPARE(finding["found"].toString(), QString("%1 bytes").arg(65 + image.text.size()));
}

void VerifyHeaderTest::saysNothingOfAPageThatIsLongerThanOne()
{
    ForgedImage image;
    image.text.replace("Rev B", QByteArray(2111 - 65 - image.text.size() + 5, 'x'));
    QCOMPARE(image.page().size(), 2117);
    const Run run = verify(image);
    QCOMPARE(run.code, 0);
    // Most pages are: only that the payload has no checksum is worth a note.
    QCOMPARE(run.json()["findings"].toArray().size(), 1);
    QCOMPARE(run.finding("payload")["severity"].toString(), QString("note"));
}

ZORV_TEST(VerifyHeaderTest)
#include "VerifyHeaderTest.moc"
