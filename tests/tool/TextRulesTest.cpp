#include "tool/check/TextRules.h"

#include <QTextCodec>
#include <QtTest>

/// What a text of a header may be.
class TextRulesTest : public QObject {
    Q_OBJECT

private slots:
    void namesFields();
    void findsTextsThatBreakRecords_data();
    void findsTextsThatBreakRecords();
    void findsTextsThatDoNotShow();
    void findsTextsThatCannotBeEncoded();
    void findsTextsThatAFormCuts();
};

void TextRulesTest::namesFields()
{
    QCOMPARE(TextRules::fieldName("author", -1), QString("author"));
    QCOMPARE(TextRules::fieldName("author", 3), QString("functions[3].author"));
}

void TextRulesTest::findsTextsThatBreakRecords_data()
{
    QTest::addColumn<QString>("author");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("breaches");
    QTest::newRow("nothing") << "Ann"
                             << "one\ntwo" << 0;
    QTest::newRow("a line break") << "A\nnn"
                                  << "" << 1;
    QTest::newRow("a carriage return") << "Ann"
                                       << "one\r\ntwo" << 1;
    QTest::newRow("a mark") << "---"
                            << "a --- b" << 1;
    QTest::newRow("a control") << "A\x01"
                               << "\x7f" << 2;
    QTest::newRow("a tab") << "A\tnn"
                           << "" << 0;
}

void TextRulesTest::findsTextsThatBreakRecords()
{
    QFETCH(QString, author);
    QFETCH(QString, description);
    QFETCH(int, breaches);
    FcfHeader header;
    header.author = author;
    header.description = description;
    QCOMPARE(TextRules::brokenRecords(header).size(), breaches);
}

void TextRulesTest::findsTextsThatDoNotShow()
{
    FcfHeader header;
    header.author = "Ann\tÄ字😀";
    header.description = "one\ntwo";
    QVERIFY(TextRules::unprintable(header).isEmpty());
    header.author += QChar(0x202e);
    const auto breaches = TextRules::unprintable(header);
    QCOMPARE(breaches.size(), 1);
    QCOMPARE(breaches.first().field, QString("author"));
    QVERIFY(breaches.first().reason.contains("\\u202e"));
}

void TextRulesTest::findsTextsThatCannotBeEncoded()
{
    FcfHeader header;
    header.author = "Ж";
    const QTextCodec* const latin = QTextCodec::codecForName("ISO-8859-1");
    QCOMPARE(TextRules::notEncodable(header, latin).size(), 1);
    QVERIFY(TextRules::notEncodable(header, QTextCodec::codecForName("UTF-8")).isEmpty());
    header.author = QChar(0xd800);
    QCOMPARE(TextRules::notEncodable(header, QTextCodec::codecForName("UTF-8")).size(), 1);
}

void TextRulesTest::findsTextsThatAFormCuts()
{
    QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    FcfHeader header;
    header.author = "Ann";
    QVERIFY(TextRules::lostInForm(header, codec).isEmpty());
    header.author = "Ann: B";
    QCOMPARE(TextRules::lostInForm(header, codec).size(), 1);
}

QTEST_GUILESS_MAIN(TextRulesTest)
#include "TextRulesTest.moc"
