#include "VerifyingTest.h"

#include <QJsonArray>
#include <QtTest>

/// What verify finds in files that are not what they should be.
class VerifyTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init() { QFile::remove(m_tool.path("top.txt")); }
    void findsNothingWrongWithAForgedButRightImage();
    void findsEachFlippedBitOfANumber_data();
    void findsEachFlippedBitOfANumber();
    void findsEachFlippedBitOfAReservedWord();
    void findsEachFlippedBitOfTheLineFeed();
    void findsEachFlippedBitOfTheFiller();
    void findsAPayloadOfAnotherLength();
    void namesEachSizeThatDisagreesWithTheOthers();
    void namesTheOrderOfSwappedImages_data();
    void namesTheOrderOfSwappedImages();
    void findsAFileCutAnywhere();
    void findsCodesOutOfRange_data();
    void findsCodesOutOfRange();
    void findsANegativeVersion();
    void notesAFunctionThatIsPartOfAText_data();
    void notesAFunctionThatIsPartOfAText();
    void findsTextsThatAreNotWellFormed_data();
    void findsTextsThatAreNotWellFormed();
    void findsATextBeyondThePage();
    void saysNothingOfAPageThatIsLongerThanOne();
    void notesAnotherFileName();
    void saysThatTheHeaderHoldsNoChecksum();
    void takesTheTypeItIsTold();
    void goesThroughAllFiles();
    void printsFindingsAsResults();
    void survivesHostileFiles_data();
    void survivesHostileFiles();
};

void VerifyTest::findsNothingWrongWithAForgedButRightImage()
{
    const Run run = verify(ForgedImage());
    QCOMPARE(run.code, 0);
    QVERIFY(run.json()["files"].toArray()[0].toObject()["valid"].toBool());
    m_tool.write("top.txt", ForgedImage().page());
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.txt")}).code, 0);
}

void VerifyTest::findsEachFlippedBitOfANumber_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("field");
    const char* const fields[] = {"totalPages", "totalBlocks", "totalSize", "binPages",
                                  "binBlocks",  "binFileSize", "moduleCode"};
    for (int index = 0; index < 7; ++index)
        QTest::newRow(fields[index]) << index << QString(fields[index]);
}

void VerifyTest::findsEachFlippedBitOfANumber()
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

void VerifyTest::findsEachFlippedBitOfAReservedWord()
{
    for (int bit = 0; bit < 5 * 32; ++bit) {
        ForgedImage image;
        quint32& word = image.reserved[bit / 32];
        word ^= 1u << (bit % 32);
        checkFinding(verify(image), {QString("reserved[%1]").arg(bit / 32), 44 + 4 * (bit / 32),
                                     "0xFFFFFFFF", "0x" + QString::number(word, 16).toUpper()});
    }
}

void VerifyTest::findsEachFlippedBitOfTheLineFeed()
{
    for (int bit = 0; bit < 8; ++bit) {
        ForgedImage image;
        image.lineFeed[0] = static_cast<char>('\n' ^ (1 << bit));
        const Run run = verify(image);
        QCOMPARE(run.code, 1);
        QCOMPARE(run.finding("text")["offset"].toInt(), 64);
    }
}

void VerifyTest::findsEachFlippedBitOfTheFiller()
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

void VerifyTest::findsAPayloadOfAnotherLength()
{
    const ForgedImage right;
    const QByteArray whole = right.bytes();
    const int page = right.page().size();
    const QString expected = QString("%1 bytes").arg(whole.size());
    const auto check = [&](const QByteArray& bytes, int offset, const QString& reason) {
        const Run run = verifyBytes(bytes);
        QCOMPARE(run.code, 1);
        const QList<QJsonObject> errors = errorsOf(run);
        QCOMPARE(errors.size(), 1);
        QCOMPARE(errors[0]["field"].toString(), QString("payload"));
        QCOMPARE(errors[0]["reason"].toString(), reason);
        QCOMPARE(errors[0]["offset"].toInt(), offset);
        QCOMPARE(errors[0]["expected"].toString(), expected);
        QCOMPARE(errors[0]["found"].toString(), QString("%1 bytes").arg(bytes.size()));
    };
    check(whole.chopped(1), whole.size() - 1, "1 byte is missing at the end");
    check(whole.chopped(2), whole.size() - 2, "2 bytes are missing at the end");
    check(right.page(), page, "4000 bytes are missing at the end");
    check(whole + "a", whole.size(), "1 byte follows the payload, not all of them 0xFF");
    check(whole + QByteArray(7, '\xff') + "a", whole.size(),
          "8 bytes follow the payload, not all of them 0xFF");
    check(whole + whole, whole.size(),
          QString("a second image follows at offset %1").arg(whole.size()));
    const QByteArray padding(5000, '\xff');
    check(whole + padding + whole, whole.size(),
          QString("a second image follows at offset %1").arg(whole.size() + padding.size()));
}

void VerifyTest::namesEachSizeThatDisagreesWithTheOthers()
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

void VerifyTest::namesTheOrderOfSwappedImages_data()
{
    QTest::addColumn<QVector<int>>("order");
    QTest::addColumn<bool>("reversesBits");
    QTest::addColumn<QString>("name");
    QTest::newRow("bytes") << QVector<int>{3, 2, 1, 0} << false << "byte-swapped";
    QTest::newRow("halfwords") << QVector<int>{2, 3, 0, 1} << false << "halfword-swapped";
    QTest::newRow("bytes of halfwords")
        << QVector<int>{1, 0, 3, 2} << false << "byte-swapped in each halfword";
    QTest::newRow("bits") << QVector<int>{0, 1, 2, 3} << true << "bit-swapped";
    QTest::newRow("bits and bytes")
        << QVector<int>{3, 2, 1, 0} << true << "bit-swapped and byte-swapped";
    QTest::newRow("bits and bytes of halfwords")
        << QVector<int>{1, 0, 3, 2} << true << "bit-swapped and byte-swapped in each halfword";
}

void VerifyTest::namesTheOrderOfSwappedImages()
{
    QFETCH(QVector<int>, order);
    QFETCH(bool, reversesBits);
    QFETCH(QString, name);
    const QByteArray right = ForgedImage().bytes();
    QByteArray swapped;
    for (int word = 0; word + 4 <= right.size(); word += 4) {
        for (const int byte : order) {
            const auto bits = static_cast<uchar>(right.at(word + byte));
            uchar reversed = 0;
            for (int bit = 0; bit < 8; ++bit)
                reversed = static_cast<uchar>(reversed | ((bits >> bit & 1) << (7 - bit)));
            swapped += static_cast<char>(reversesBits ? reversed : bits);
        }
    }
    const Run run = verifyBytes(swapped);
    QCOMPARE(run.code, 1);
    QCOMPARE(
        run.finding("text")["reason"].toString(),
        QString("is no FCF file: its words are %1; read it in the order of the flash").arg(name));

    m_tool.write("top.bin", swapped);
    const Run made = m_tool.run(
        Arguments{"create", m_tool.argument("top.bin"), "--output", m_tool.argument("new.fcf")} +
        ToolFixture::described());
    QCOMPARE(made.code, 2);
    QVERIFY2(made.err.contains("payload: is a " + name.toUtf8() +
                               " FCF image: swap it back and extract it first\n"),
             made.err);
}

void VerifyTest::findsAFileCutAnywhere()
{
    const QByteArray bytes = ForgedImage().bytes();
    for (int length = 0; length < bytes.size(); length += length < 400 ? 1 : 97) {
        const Run run = verifyBytes(bytes.left(length));
        QVERIFY2(run.code == 1, qPrintable(QString::number(length)));
        for (const auto& value : run.json()["findings"].toArray()) {
            const QJsonObject finding = value.toObject();
            if (finding["severity"].toString() != "error")
                continue;
            QVERIFY2(!finding["field"].toString().isEmpty() && finding.contains("offset") &&
                         !finding["expected"].toString().isEmpty() && finding.contains("found"),
                     run.out);
        }
    }
}

void VerifyTest::findsCodesOutOfRange_data()
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

void VerifyTest::findsCodesOutOfRange()
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

void VerifyTest::findsANegativeVersion()
{
    for (const int index : {9, 10}) {
        ForgedImage image;
        image.numbers[index] = -3;
        checkFinding(verify(image),
                     {index == 9 ? "versionMajor" : "versionMinor", 4 * index, "0 or more", "-3"});
    }
}

void VerifyTest::notesAFunctionThatIsPartOfAText_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("first");
    QTest::newRow("of the description") << "description" << true;
    QTest::newRow("of a function before it") << "functions[0].description" << false;
}

void VerifyTest::notesAFunctionThatIsPartOfAText()
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

void VerifyTest::findsTextsThatAreNotWellFormed_data()
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

void VerifyTest::findsTextsThatAreNotWellFormed()
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

void VerifyTest::findsATextBeyondThePage()
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

void VerifyTest::saysNothingOfAPageThatIsLongerThanOne()
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

void VerifyTest::notesAnotherFileName()
{
    ForgedImage image;
    image.text.replace("top.fcf", "old.fcf");
    const Run run = verify(image);
    QCOMPARE(run.code, 0);
    QCOMPARE(run.finding("fileName")["severity"].toString(), QString("note"));
    QCOMPARE(run.finding("fileName")["found"].toString(), QString("old.fcf"));
    QCOMPARE(run.finding("fileName")["offset"].toInt(), 75);
}

void VerifyTest::saysThatTheHeaderHoldsNoChecksum()
{
    ForgedImage image;
    image.payload[100] = static_cast<char>(image.payload.at(100) ^ 1);
    Run run = verify(image);
    QCOMPARE(run.code, 0);
    QVERIFY(run.finding("payload")["reason"].toString().contains("holds no checksum"));
    QCOMPARE(run.json()["files"].toArray()[0].toObject()["payloadCompared"].toBool(true), false);
    m_tool.write("top.bin", image.payload);
    run = verify(image, {"--bin", m_tool.argument("top.bin")});
    QVERIFY(run.finding("payload").isEmpty());
    QCOMPARE(run.json()["files"].toArray()[0].toObject()["payloadCompared"].toBool(), true);
}

void VerifyTest::takesTheTypeItIsTold()
{
    const ForgedImage image;
    m_tool.write("image", image.bytes());
    m_tool.write("companion", image.page());
    const auto code = [this](const char* name, const char* type) {
        return m_tool.run({"verify", m_tool.argument(name), "--type", type}).code;
    };
    QCOMPARE(code("image", "image"), 0);
    QCOMPARE(code("companion", "companion"), 0);
    // An image without its payload is no companion, and the other way round.
    QCOMPARE(code("companion", "image"), 1);
    QCOMPARE(code("image", "companion"), 1);
    m_tool.in = image.bytes();
    QCOMPARE(m_tool.run({"verify", "-", "--type", "image"}).code, 0);
    QCOMPARE(m_tool.run({"verify", "-"}).code, 2);
}

void VerifyTest::goesThroughAllFiles()
{
    ToolFixture tool;
    tool.makeImage();
    tool.write("bad.fcf", "bad");
    const Arguments files{"verify", tool.argument("none.fcf"), tool.argument("bad.fcf"),
                          tool.argument("top.fcf")};
    const Run run = tool.run(files);
    QCOMPARE(run.code, 3);
    QVERIFY2(run.out.contains("top.fcf: valid\n") && run.out.contains("bad.fcf: not valid\n"),
             run.out);
    QVERIFY2(run.err.contains("none.fcf: FILE: cannot be read"), run.err);
    QCOMPARE(tool.run({"verify", tool.argument("bad.fcf"), tool.argument("top.fcf")}).code, 1);
}

void VerifyTest::printsFindingsAsResults()
{
    ForgedImage image;
    image.numbers[8] = 11;
    verify(image);
    const Run run = m_tool.run({"verify", m_tool.argument("top.fcf")});
    QCOMPARE(run.err, QByteArray());
    QVERIFY2(run.out.contains("configNumber at offset 32: is no flash slot; expected 1 to 10, "
                              "found 11\n"),
             run.out);
    const Run quiet = m_tool.run({"verify", m_tool.argument("top.fcf"), "--quiet"});
    QCOMPARE(quiet.code, 1);
    QVERIFY2(quiet.out.contains("is no flash slot") && quiet.out.contains("top.fcf: not valid\n"),
             quiet.out);
    QVERIFY2(!quiet.out.contains("note: "), quiet.out);
}

void VerifyTest::survivesHostileFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("noise") << ToolFixture::payload(50000);
    QTest::newRow("line feeds") << QByteArray(100000, '\n');
    QTest::newRow("one endless line")
        << ForgedImage().preamble() + "\nFilename: " + QByteArray(1000000, 'x');
    ForgedImage endless;
    endless.text.chop(5);
    endless.text += QByteArray("Function name: \nFunction author: \nFunction CI No: \n"
                               "Function description: \n---\n")
                        .repeated(5000);
    QTest::newRow("endless functions") << endless.bytes();
}

void VerifyTest::survivesHostileFiles()
{
    QFETCH(QByteArray, bytes);
    const Run run = verifyBytes(bytes);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.json()["findings"].toArray().size(), 1);
    for (const char* const command : {"show", "recipe"})
        QCOMPARE(m_tool.run({command, m_tool.argument("top.fcf")}).code, 1);
    const Run extracted =
        m_tool.run({"extract", m_tool.argument("top.fcf"), "--output", m_tool.argument("out")});
    QCOMPARE(extracted.code, 1);
    QVERIFY(!m_tool.exists("out"));
    QCOMPARE(extracted.err.count('\n'), 1);
}

QTEST_GUILESS_MAIN(VerifyTest)
#include "VerifyTest.moc"
