#include "support/TestProgram.h"
#include "VerifyingTest.h"

#include <QJsonArray>
#include <QtTest>

/// What verify finds when it compares a file with others.
class VerifyComparisonTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init() { m_tool.clear(); }
    void comparesThePayloadWithTheBinary();
    void comparesTheHeaderWithTheCompanion();
    void checksTheCompanionBesideTheImage();
    void checksTheSizesOfACompanionAgainstTheBinary();
    void checksTheDigestBesideAnImage();
    void requiresADigest();
    void comparesWithWhatWasMeant_data();
    void comparesWithWhatWasMeant();
    void refusesWhatNobodyCanHaveMeant();
};

void VerifyComparisonTest::comparesThePayloadWithTheBinary()
{
    ForgedImage image;
    m_tool.write("top.bin", image.payload);
    const Arguments binary{"--bin", m_tool.argument("top.bin")};
    QCOMPARE(verify(image, binary).code, 0);
    const int pageBytes = image.page().size();
    for (const int offset : {0, 1, 2000, 3999}) {
        const char right = image.payload.at(offset);
        image.payload[offset] = static_cast<char>(right ^ 0x10);
        checkFinding(verify(image, binary), {"payload", pageBytes + offset, hexByte(right),
                                             hexByte(image.payload.at(offset))});
        image.payload[offset] = right;
    }
    m_tool.write("top.bin", image.payload + "x");
    checkFinding(verify(image, binary), {"payload", pageBytes, "4001 bytes", "4000 bytes"});
    QCOMPARE(verify(image, {"--bin", m_tool.argument("none.bin")}).code, 3);
}

void VerifyComparisonTest::comparesTheHeaderWithTheCompanion()
{
    const ForgedImage image;
    const Arguments companion{"--companion", m_tool.argument("top.txt")};
    m_tool.write("top.txt", image.page());
    QCOMPARE(verify(image, companion).code, 0);
    for (const int offset : {0, 70, 300, image.page().size() - 1}) {
        QByteArray page = image.page();
        page[offset] = static_cast<char>(page.at(offset) ^ 4);
        m_tool.write("top.txt", page);
        checkFinding(verify(image, companion), {"header", offset, hexByte(page.at(offset)),
                                                hexByte(image.page().at(offset))});
    }
    m_tool.write("top.txt", image.page() + "x");
    checkFinding(verify(image, companion), {"header", image.page().size(), "0x78", "the end"});
    m_tool.write("top.txt", image.page().left(100));
    QCOMPARE(verify(image, companion).code, 1);
}

void VerifyComparisonTest::checksTheCompanionBesideTheImage()
{
    m_tool.makeImage();
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.fcf")}).code, 0);
    m_tool.write("top.txt", m_tool.read("top.txt").replace("Ann", "Eve"));
    const Run run = m_tool.run({"verify", m_tool.argument("top.fcf")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("header at offset 101: is not the companion "), run.out);
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.fcf"), "--no-companion"}).code, 0);
}

void VerifyComparisonTest::checksTheSizesOfACompanionAgainstTheBinary()
{
    const ForgedImage image;
    m_tool.write("top.txt", image.page());
    m_tool.write("top.bin", image.payload);
    const Arguments arguments{"verify", m_tool.argument("top.txt"), "--json", "--bin",
                              m_tool.argument("top.bin")};
    QCOMPARE(m_tool.run(arguments).code, 0);
    m_tool.write("top.bin", image.payload + "x");
    checkFinding(m_tool.run(arguments), {"binFileSize", 20, "4001", "4000"});

    // All but one of the six sizes are others then.
    m_tool.write("top.bin", image.payload + QByteArray(64 * 2112, 'x'));
    const Run run = m_tool.run(arguments);
    QCOMPARE(errorsOf(run).size(), 1);
    checkFinding(run, {"binFileSize", 20, "139168", "4000"});
    QVERIFY(run.finding("binFileSize")["reason"].toString().startsWith("is not the length of "));
}

void VerifyComparisonTest::checksTheDigestBesideAnImage()
{
    ToolFixture tool;
    tool.makeImage();
    QByteArray image = tool.read("top.fcf");
    const QByteArray digest = sha256Of(image);
    tool.write("top.fcf.sha256", digest + "  top.fcf\n");
    const Arguments arguments{"verify", tool.argument("top.fcf"), "--json"};
    Run run = tool.run(arguments);
    QCOMPARE(run.code, 0);
    QVERIFY(run.finding("payload").isEmpty());

    image[image.size() - 1] = static_cast<char>(image.back() ^ 1);
    tool.write("top.fcf", image);
    run = tool.run(arguments);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.finding("digest")["expected"].toString(), QString(digest));

    tool.write("top.fcf.sha256", digest + "  other.fcf\n" + digest + "  another.fcf\n");
    run = tool.run(arguments);
    QCOMPARE(run.code, 1);
    QVERIFY(run.finding("digest")["reason"].toString().startsWith("holds no SHA-256 of"));
}

void VerifyComparisonTest::requiresADigest()
{
    m_tool.makeImage();
    const Arguments verify{"verify", m_tool.argument("top.fcf"), "--require-digest"};
    const Run run = m_tool.run(verify);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("digest: is required, and there is none"), run.out);
    QCOMPARE(m_tool.create("top.bin", {"--force", "--digest"}).code, 0);
    QCOMPARE(m_tool.run(verify).code, 0);
}

void VerifyComparisonTest::comparesWithWhatWasMeant_data()
{
    QTest::addColumn<QByteArray>("recipe");
    QTest::addColumn<QStringList>("fields");
    const auto row = [](const char* name, const QByteArray& members, const QStringList& fields) {
        QTest::newRow(name) << "{\"recipe\": 2" + members + "}" << fields;
    };
    const QByteArray fft = "{\"name\": \"fft\", \"author\": \"Bob\", \"ciNumber\": \"7\", "
                           "\"description\": \"Spectrum\"}";
    row("nothing", "", {});
    row("all that there is",
        ", \"author\": \"Ann\", \"ciNumber\": \"42\", \"module\": \"DFE\", \"device\": "
        "\"Interface_FPGA\", \"configNumber\": 1, \"version\": \"1.0\", \"description\": "
        "\"  Rev B\\n\", \"functions\": [" +
            fft + "]",
        {});
    row("an author", ", \"author\": \"Bob\"", {"author"});
    row("a version", ", \"version\": \"1.1\"", {"version"});
    row("a slot", ", \"configNumber\": 2", {"configNumber"});
    row("a device", ", \"module\": \"DFE\", \"device\": \"Clock_Master_Device\"", {"device"});
    row("a description and a CI number", ", \"description\": \"\", \"ciNumber\": \"\"",
        {"ciNumber", "description"});
    row("no functions", ", \"functions\": []", {"functions[fft]"});
    row("a function", ", \"functions\": [" + QByteArray(fft).replace("Bob", "Cy") + "]",
        {"functions[fft].author"});
}

void VerifyComparisonTest::comparesWithWhatWasMeant()
{
    QFETCH(QByteArray, recipe);
    QFETCH(QStringList, fields);
    m_tool.write("meant.json", recipe);
    const Run run = verifyBytes(ForgedImage().bytes(),
                                {"--no-companion", "--like", m_tool.argument("meant.json")});
    QCOMPARE(run.code, fields.isEmpty() ? 0 : 1);
    QStringList found;
    for (const auto& value : run.json()["findings"].toArray()) {
        const QJsonObject finding = value.toObject();
        if (finding["severity"].toString() == "error")
            found << finding["field"].toString();
    }
    QCOMPARE(found, fields);
    if (fields == QStringList("author")) {
        QCOMPARE(run.finding("author")["expected"].toString(), QString("Bob"));
        QCOMPARE(run.finding("author")["found"].toString(), QString("Ann"));
    }
}

void VerifyComparisonTest::refusesWhatNobodyCanHaveMeant()
{
    m_tool.write("meant.json", "{}");
    const Arguments like{"--like", m_tool.argument("meant.json")};
    QCOMPARE(verifyBytes(ForgedImage().bytes(), like).code, 2);
    QCOMPARE(
        m_tool
            .run(Arguments{"verify", m_tool.argument("top.fcf"), m_tool.argument("top.fcf")} + like)
            .code,
        2);

    // The image of the release is what was meant.
    ForgedImage image;
    m_tool.write("release.fcf", image.bytes());
    image.text.replace("Date: 31 May 2024", "Date: 1 June 2025");
    const Arguments release{"--like", m_tool.argument("release.fcf"), "--no-companion"};
    const Run same = verifyBytes(image.bytes(), release);
    QVERIFY2(same.code == 0, same.out);
    image.text.replace("Author: Ann", "Author: Bob");
    QCOMPARE(verifyBytes(image.bytes(), release).code, 1);
}

ZORV_TEST(VerifyComparisonTest)
#include "VerifyComparisonTest.moc"
