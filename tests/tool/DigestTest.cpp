#include "tool/files/Digest.h"
#include "tool/files/DigestList.h"

#include <QtTest>

/// Lines of digest files.
class DigestTest : public QObject {
    Q_OBJECT

private slots:
    void hashesPartsAsAWhole();
    void writesLinesThatItFinds_data();
    void writesLinesThatItFinds();
    void findsNothingOfAnotherName();
};

void DigestTest::hashesPartsAsAWhole()
{
    Digest::Hash hash;
    hash.add("a", 1);
    hash.add("bc", 2);
    QCOMPARE(hash.result().toHex(),
             QByteArray("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

void DigestTest::writesLinesThatItFinds_data()
{
    QTest::addColumn<QString>("path");
    for (const char* const path : {"top.fcf", "folder/top.fcf", "a b.fcf", "a\\b.fcf", "a\nb.fcf"})
        QTest::newRow(path) << path;
}

void DigestTest::writesLinesThatItFinds()
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

void DigestTest::findsNothingOfAnotherName()
{
    const QByteArray line = Digest::line(QByteArray(32, 'x'), "top.fcf");
    QVERIFY(DigestList(line, ".").entriesOfName("op.fcf").isEmpty());
    QVERIFY(DigestList(line.mid(1), ".").entries().isEmpty());
    QCOMPARE(DigestList(line, ".").entries().size(), 1);
}

QTEST_GUILESS_MAIN(DigestTest)
#include "DigestTest.moc"
