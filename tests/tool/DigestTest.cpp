#include "tool/files/Digest.h"

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
    QCOMPARE(Digest::find(line, path), QList<QByteArray>{digest});
    QCOMPARE(Digest::find("\n# no digest\n" + line + line, path),
             (QList<QByteArray>{digest, digest}));
}

void DigestTest::findsNothingOfAnotherName()
{
    const QByteArray line = Digest::line(QByteArray(32, 'x'), "top.fcf");
    QVERIFY(Digest::find(line, QString("op.fcf")).isEmpty());
    QVERIFY(Digest::find(line.mid(1), QString("top.fcf")).isEmpty());
    QCOMPARE(Digest::find(line, std::nullopt).size(), 1);
}

QTEST_GUILESS_MAIN(DigestTest)
#include "DigestTest.moc"
