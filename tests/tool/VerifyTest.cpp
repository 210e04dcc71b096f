#include "support/TestProgram.h"
#include "VerifyingTest.h"

#include <QJsonArray>
#include <QtTest>

/// What verify gives, and what it says of files that are no images.
class VerifyTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init() { m_tool.clear(); }
    void findsNothingWrongWithAForgedButRightImage();
    void takesTheTypeItIsTold();
    void goesThroughAllFiles();
    void printsFindingsAsResults();
    void saysThatTheHeaderHoldsNoChecksum();
    void notesAnotherFileName();
    void findsAPayloadOfAnotherLength();
    void findsAFileCutAnywhere();
    void namesWhatIsNoFcfFile_data();
    void namesWhatIsNoFcfFile();
    void survivesHostileFiles_data();
    void survivesHostileFiles();
};

void VerifyTest::findsNothingWrongWithAForgedButRightImage()
{
    const Run run = verify(ForgedImage());
    QCOMPARE(run.code, 0);
    QVERIFY(run.firstFile()["valid"].toBool());
    m_tool.write("top.txt", ForgedImage().page());
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.txt")}).code, 0);
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

void VerifyTest::saysThatTheHeaderHoldsNoChecksum()
{
    ForgedImage image;
    image.payload[100] = static_cast<char>(image.payload.at(100) ^ 1);
    Run run = verify(image);
    QCOMPARE(run.code, 0);
    QVERIFY(run.finding("payload")["reason"].toString().contains("holds no checksum"));
    QCOMPARE(run.firstFile()["payloadCompared"].toBool(true), false);
    m_tool.write("top.bin", image.payload);
    run = verify(image, {"--bin", m_tool.argument("top.bin")});
    QVERIFY(run.finding("payload").isEmpty());
    QCOMPARE(run.firstFile()["payloadCompared"].toBool(), true);
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

void VerifyTest::namesWhatIsNoFcfFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("erased flash") << QByteArray(1024 * 1024, '\xff')
                                  << "is no FCF file: it is erased flash, 0xFF from its start";
    QTest::newRow("zeros") << QByteArray(4096, '\0')
                           << "is no FCF file: it has nothing but zeros at its start";
    QTest::newRow("something else")
        << QByteArray(4096, 'x')
        << "is no FCF file: neither the reserved words nor the beginning of the text are there";
    QTest::newRow("a few bytes") << QByteArray("bad")
                                 << "is no FCF header page: it ends before the text";
}

void VerifyTest::namesWhatIsNoFcfFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const Run run = verifyBytes(bytes);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.finding("text")["reason"].toString(), reason);
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

ZORV_TEST(VerifyTest)
#include "VerifyTest.moc"
