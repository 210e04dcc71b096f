#include "support/TestProgram.h"
#include "VerifyingTest.h"

#include "tool/files/Digest.h"
#include "tool/files/DigestList.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

/// Lists of digests: lines, names, and the image that each is of.
class DigestListTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init() { m_tool.clear(); }
    void hashesPartsAsAWhole();
    void writesLinesThatItFinds_data();
    void writesLinesThatItFinds();
    void findsNothingOfAnotherName();
    void isCheckedBySha256sum();
    void checksADigestFromElsewhere();
    void acceptsOtherFormsOfDigestFiles_data();
    void acceptsOtherFormsOfDigestFiles();
    void takesTheOnlyDigestForAnImageWithoutAName();
    void findsEntriesByTheirPaths();
    void findsEntriesSeenFromHere();
    void takesNoDigestOfOneImageForAnother();
    void takesADigestThatWasRenamedWithItsImage();
    void checksAReadBackAgainstARelease_data();
    void checksAReadBackAgainstARelease();
};

void DigestListTest::hashesPartsAsAWhole()
{
    Digest::Hash hash;
    hash.add("a", 1);
    hash.add("bc", 2);
    QCOMPARE(hash.result().toHex(),
             QByteArray("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

void DigestListTest::writesLinesThatItFinds_data()
{
    QTest::addColumn<QString>("path");
    for (const char* const path : {"top.fcf", "folder/top.fcf", "a b.fcf", "a\\b.fcf", "a\nb.fcf"})
        QTest::newRow(path) << path;
}

void DigestListTest::writesLinesThatItFinds()
{
    QFETCH(QString, path);
    const QByteArray digest(32, 'x');
    const QByteArray line = Digest::line(digest, path);
    QCOMPARE(line.count('\n'), 1);
    QVERIFY(DigestList::isDigest(line));

    const DigestList list("\n# no digest\n" + line + line, ".");
    QCOMPARE(list.entries().size(), 2);
    QCOMPARE(list.entriesOfName(path).size(), 2);
    QCOMPARE(list.entriesOfName(path).first().digest, digest);
    QVERIFY(!DigestList::isDigest(line + line));
}

void DigestListTest::findsNothingOfAnotherName()
{
    const QByteArray line = Digest::line(QByteArray(32, 'x'), "top.fcf");
    QVERIFY(DigestList(line, ".").entriesOfName("op.fcf").isEmpty());
    QVERIFY(DigestList(line.mid(1), ".").entries().isEmpty());
    QCOMPARE(DigestList(line, ".").entries().size(), 1);
}

void DigestListTest::isCheckedBySha256sum()
{
    ToolFixture tool;
    tool.write("a\\b c.bin", ToolFixture::payload(100));
    QCOMPARE(tool.create("a\\b c.bin", {"--digest"}).code, 0);
    const auto sha256sum = [&tool](const QStringList& arguments) {
        QProcess process;
        process.setWorkingDirectory(tool.path("."));
        process.start("sha256sum", arguments);
        process.waitForFinished();
        return process.exitCode() == 0 ? process.readAllStandardOutput() : "failed";
    };
    const QByteArray line = tool.read("a\\b c.fcf.sha256");
    QVERIFY(sha256sum({"-c", "--strict", "a\\b c.fcf.sha256"}).endsWith(": OK\n"));
    QCOMPARE(sha256sum({"a\\b c.fcf"}), line);

    const Run verified = tool.run({"verify", tool.argument("a\\b c.fcf"), "--require-digest"});
    QVERIFY2(verified.code == 0, verified.out);
}

void DigestListTest::checksADigestFromElsewhere()
{
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = sha256Of(bytes);
    m_tool.write("sums", digest + "  top.fcf\n");
    QCOMPARE(verifyBytes(bytes, {"--digest", m_tool.argument("sums")}).code, 0);
    QCOMPARE(verifyBytes(bytes, {"--digest", m_tool.argument("none")}).code, 3);
}

void DigestListTest::acceptsOtherFormsOfDigestFiles_data()
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

void DigestListTest::acceptsOtherFormsOfDigestFiles()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(bool, accepted);
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = sha256Of(bytes);
    m_tool.write("sums", before + digest + after);
    QCOMPARE(verifyBytes(bytes, {"--digest", m_tool.argument("sums")}).code, accepted ? 0 : 1);
}

void DigestListTest::takesTheOnlyDigestForAnImageWithoutAName()
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

void DigestListTest::findsEntriesByTheirPaths()
{
    const QByteArray release = ForgedImage().bytes();
    ForgedImage other;
    other.payload[3000] = static_cast<char>(~other.payload.at(3000));
    const auto digest = [](const QByteArray& bytes) { return sha256Of(bytes); };
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

void DigestListTest::findsEntriesSeenFromHere()
{
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = sha256Of(bytes);
    QVERIFY(QDir().mkdir(m_tool.path("lists")));
    m_tool.write("top.fcf", bytes);
    m_tool.write("lists/sums", digest + "  top.fcf\n" + QByteArray(64, 'a') + "  out/top.fcf\n");

    const QString here = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_tool.path(".")));
    const Run run = m_tool.run({"verify", "top.fcf", "--digest", "lists/sums"});
    QVERIFY(QDir::setCurrent(here));
    QVERIFY2(run.code == 0, run.out);
}

void DigestListTest::takesNoDigestOfOneImageForAnother()
{
    const QByteArray bytes = ForgedImage().bytes();
    const QByteArray digest = sha256Of(bytes);
    m_tool.write("a.fcf", bytes);
    m_tool.write("b.fcf", bytes);
    m_tool.write("sums", digest + "  a.fcf\n");
    const Run run = m_tool.run({"verify", m_tool.argument("a.fcf"), m_tool.argument("b.fcf"),
                                "--digest", m_tool.argument("sums")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("a.fcf: valid\n"), run.out);
    QVERIFY2(run.out.contains("holds no SHA-256 of"), run.out);
}

void DigestListTest::takesADigestThatWasRenamedWithItsImage()
{
    m_tool.makeImage();
    QCOMPARE(m_tool.create("top.bin", {"--force", "--digest", "--no-companion"}).code, 0);
    QVERIFY(QFile::rename(m_tool.path("top.fcf"), m_tool.path("new.fcf")));
    QVERIFY(QFile::rename(m_tool.path("top.fcf.sha256"), m_tool.path("new.fcf.sha256")));
    const Run run = m_tool.run({"verify", m_tool.argument("new.fcf")});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.contains("new.fcf.sha256: digest: is of a file with another name"), run.out);
    m_tool.write("new.fcf", m_tool.read("new.fcf") + "x");
    QVERIFY(m_tool.run({"verify", m_tool.argument("new.fcf")})
                .out.contains("digest at offset 0: is "
                              "not that of"));
}

void DigestListTest::checksAReadBackAgainstARelease_data()
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

void DigestListTest::checksAReadBackAgainstARelease()
{
    QFETCH(int, releasePadding);
    QFETCH(int, readPadding);
    ForgedImage image;
    const QByteArray released = image.bytes() + QByteArray(releasePadding, '\xff');
    m_tool.write("rel.fcf.sha256", sha256Of(released) + "  rel.fcf\n");
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

ZORV_TEST(DigestListTest)
#include "DigestListTest.moc"
