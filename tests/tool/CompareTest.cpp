#include "VerifyingTest.h"

#include <QCryptographicHash>
#include <QtTest>

/// What verify finds when it compares a file with others.
class CompareTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void comparesThePayloadWithTheBinary();
    void comparesTheHeaderWithTheCompanion();
    void checksTheSizesOfACompanionAgainstTheBinary();
    void checksTheDigestBesideAnImage();
    void checksADigestFromElsewhere();
    void acceptsOtherFormsOfDigestFiles_data();
    void acceptsOtherFormsOfDigestFiles();
    void takesTheOnlyDigestForAnImageWithoutAName();
    void findsEntriesByTheirPaths();
    void findsEntriesSeenFromHere();
    void checksAReadBackAgainstARelease_data();
    void checksAReadBackAgainstARelease();
    void takesNoDigestOfOneImageForAnother();
    void comparesWithWhatWasMeant_data();
    void comparesWithWhatWasMeant();
    void refusesWhatNobodyCanHaveMeant();
};

void CompareTest::comparesThePayloadWithTheBinary()
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

void CompareTest::comparesTheHeaderWithTheCompanion()
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

void CompareTest::checksTheSizesOfACompanionAgainstTheBinary()
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

void CompareTest::checksTheDigestBesideAnImage()
{
    ToolFixture tool;
    tool.makeImage();
    QByteArray image = tool.read("top.fcf");
    const QByteArray digest = QCryptographicHash::hash(image, QCryptographicHash::Sha256).toHex();
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

void CompareTest::checksADigestFromElsewhere()
{
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    m_tool.write("sums", digest + "  top.fcf\n");
    QCOMPARE(verifyBytes(bytes, {"--digest", m_tool.argument("sums")}).code, 0);
    QCOMPARE(verifyBytes(bytes, {"--digest", m_tool.argument("none")}).code, 3);
}

void CompareTest::acceptsOtherFormsOfDigestFiles_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<bool>("accepted");
    const QByteArray other = QByteArray(64, 'a') + "  other.fcf\n";
    QTest::newRow("a binary mark") << QByteArray() << QByteArray(" *top.fcf\n") << true;
    QTest::newRow("several lines") << other << "  top.fcf\n" + other << true;
    QTest::newRow("no line feed") << QByteArray() << QByteArray("  top.fcf") << true;
    QTest::newRow("a folder") << QByteArray() << QByteArray("  out/top.fcf\n") << true;
    QTest::newRow("this folder") << QByteArray() << QByteArray(" *./top.fcf\n") << true;
    QTest::newRow("line feeds of another system")
        << QByteArray() << QByteArray("  top.fcf\r\n") << true;
    QTest::newRow("a tag") << QByteArray("SHA256 (top.fcf) = ") << QByteArray("\n") << true;
    QTest::newRow("a tag of another name")
        << QByteArray("SHA256 (a.fcf) = ") << QByteArray("\n") << true;
    QTest::newRow("a tag of another name among others")
        << other + "SHA256 (a.fcf) = " << QByteArray("\n") << false;
    QTest::newRow("its path, and another folder") << QByteArray(64, 'a') + "  out/top.fcf\n"
                                                  << QByteArray("  ./top.fcf\n") << true;
    QTest::newRow("two other folders") << QByteArray(64, 'a') + "  out/top.fcf\n"
                                       << QByteArray("  old/top.fcf\n") << false;
    QTest::newRow("an escaped name") << "\\" + other << QByteArray("  top.fcf\n") << true;
    QTest::newRow("two digests of the name") << QByteArray(64, 'a') + "  top.fcf\n"
                                             << QByteArray("  top.fcf\n") << false;
    QTest::newRow("no name") << QByteArray() << QByteArray("\n") << false;
    QTest::newRow("one blank") << QByteArray() << QByteArray(" top.fcf\n") << false;
    QTest::newRow("a longer name") << other << QByteArray("  top.fcf.old\n") << false;
}

void CompareTest::acceptsOtherFormsOfDigestFiles()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(bool, accepted);
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    m_tool.write("sums", before + digest + after);
    QCOMPARE(verifyBytes(bytes, {"--digest", m_tool.argument("sums")}).code, accepted ? 0 : 1);
}

void CompareTest::takesTheOnlyDigestForAnImageWithoutAName()
{
    m_tool.in = ForgedImage().bytes();
    const QByteArray digest = QCryptographicHash::hash(m_tool.in, QCryptographicHash::Sha256);
    const Arguments arguments{"verify", "-",        "--type",
                              "image",  "--digest", m_tool.argument("sums")};
    m_tool.write("sums", digest.toHex() + "  top.fcf\n");
    QCOMPARE(m_tool.run(arguments).code, 0);
    m_tool.write("sums", QByteArray(64, 'a') + "  top.fcf\n");
    QCOMPARE(m_tool.run(arguments).code, 1);
    m_tool.write("sums", digest.toHex() + "  top.fcf\n" + digest.toHex() + "  other.fcf\n");
    QCOMPARE(m_tool.run(arguments).code, 1);
}

void CompareTest::findsEntriesByTheirPaths()
{
    const QByteArray release = ForgedImage().bytes();
    ForgedImage other;
    other.payload[3000] = static_cast<char>(~other.payload.at(3000));
    const auto digest = [](const QByteArray& bytes) {
        return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    };
    for (const char* const folder : {"dfe", "gpm"})
        QVERIFY(QDir().mkdir(m_tool.path(folder)));
    m_tool.write("dfe/top.fcf", release);
    m_tool.write("gpm/top.fcf", other.bytes());
    m_tool.write("sums", digest(release) + "  ./dfe/top.fcf\n" + digest(other.bytes()) +
                             "  gpm/top.fcf\n" + QByteArray(64, 'a') + "  old/top.fcf\n");
    const std::string dfe = m_tool.argument("dfe/top.fcf");
    const std::string gpm = m_tool.argument("gpm/top.fcf");

    // One list for several images, each by its path from the folder of the list.
    const Arguments list{"--digest", m_tool.argument("sums")};
    Run run = m_tool.run(Arguments{"verify", dfe, gpm} + list);
    QVERIFY2(run.code == 0, run.out + run.err);

    m_tool.write("gpm/top.fcf", release);
    run = m_tool.run(Arguments{"verify", dfe, gpm, "--json"} + list);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.finding("digest")["file"].toString(), m_tool.path("gpm/top.fcf"));
    QCOMPARE(run.finding("digest")["expected"].toString(), QString(digest(other.bytes())));

    // An image that is in none of the folders could be any of them.
    m_tool.write("top.fcf", release);
    run = m_tool.run(Arguments{"verify", m_tool.argument("top.fcf")} + list);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("sums: digest at offset 0: holds several SHA-256 that may be of"),
             run.out);
}

void CompareTest::findsEntriesSeenFromHere()
{
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    QVERIFY(QDir().mkdir(m_tool.path("lists")));
    m_tool.write("top.fcf", bytes);
    m_tool.write("lists/sums", digest + "  top.fcf\n" + QByteArray(64, 'a') + "  out/top.fcf\n");

    const QString here = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_tool.path(".")));
    const Run run = m_tool.run({"verify", "top.fcf", "--digest", "lists/sums"});
    QVERIFY(QDir::setCurrent(here));
    QVERIFY2(run.code == 0, run.out);
}

void CompareTest::checksAReadBackAgainstARelease_data()
{
    QTest::addColumn<int>("releasePadding");
    QTest::addColumn<int>("readPadding");
    QTest::newRow("as it was released") << 0 << 0;
    QTest::newRow("with what follows in flash") << 0 << 5000;
    const int bytes = ForgedImage().bytes().size();
    const int toPage = 3 * 2112 - bytes;
    const int toBlock = 64 * 2112 - bytes;
    QTest::newRow("a padded release") << toPage << toPage;
    QTest::newRow("a padded release, and what follows") << toPage << 5000;
    QTest::newRow("a release padded to a block") << toBlock << 200000;
}

void CompareTest::checksAReadBackAgainstARelease()
{
    QFETCH(int, releasePadding);
    QFETCH(int, readPadding);
    ForgedImage image;
    const QByteArray released = image.bytes() + QByteArray(releasePadding, '\xff');
    m_tool.write("rel.fcf.sha256",
                 QCryptographicHash::hash(released, QCryptographicHash::Sha256).toHex() +
                     "  rel.fcf\n");
    const Arguments verify{"verify", m_tool.argument("slot1.fcf"), "--digest",
                           m_tool.argument("rel.fcf.sha256")};

    m_tool.write("slot1.fcf", image.bytes() + QByteArray(readPadding, '\xff'));
    Run run = m_tool.run(verify);
    QVERIFY2(run.code == 0, run.out);
    QVERIFY2(run.out.contains("is of a file with another name"), run.out);
    QVERIFY2(run.out.endsWith("slot1.fcf: valid\n"), run.out);

    image.payload[2000] = static_cast<char>(~image.payload.at(2000));
    m_tool.write("slot1.fcf", image.bytes() + QByteArray(readPadding, '\xff'));
    run = m_tool.run(verify);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("slot1.fcf: digest at offset 0: is not that of"), run.out);
    QVERIFY2(run.out.endsWith("slot1.fcf: not valid\n"), run.out);
}

void CompareTest::takesNoDigestOfOneImageForAnother()
{
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    m_tool.write("a.fcf", bytes);
    m_tool.write("b.fcf", bytes);
    m_tool.write("sums", digest + "  a.fcf\n");
    const Run run = m_tool.run({"verify", m_tool.argument("a.fcf"), m_tool.argument("b.fcf"),
                                "--digest", m_tool.argument("sums")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("a.fcf: valid\n"), run.out);
    QVERIFY2(run.out.contains("holds no SHA-256 of"), run.out);
}

void CompareTest::comparesWithWhatWasMeant_data()
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

void CompareTest::comparesWithWhatWasMeant()
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

void CompareTest::refusesWhatNobodyCanHaveMeant()
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

QTEST_GUILESS_MAIN(CompareTest)
#include "CompareTest.moc"
