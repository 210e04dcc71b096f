#include "PlainRules.h"
#include "support/TestProgram.h"
#include "VerifyingTest.h"

#include <QtTest>

/// The rules in the format document and the verdict of verify agree.
class FormatRulesTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void givesTheSizesOfTheDocument_data();
    void givesTheSizesOfTheDocument();
    void judgesANumberAsTheDocument_data();
    void judgesANumberAsTheDocument();
    void judgesATextAsTheDocument_data();
    void judgesATextAsTheDocument();

private:
    void judge(const ForgedImage& image, bool isValid);
};

/// Whether verify and the document find \p image valid, or do not.
void FormatRulesTest::judge(const ForgedImage& image, bool isValid)
{
    const std::string broken = PlainRules::broken(PlainFcf::fromBytes(image.bytes().toStdString()));
    QVERIFY2(broken.empty() == isValid, broken.c_str());
    const Run run = verify(image);
    QVERIFY2(run.code == (isValid ? 0 : 1), run.out);
}

void FormatRulesTest::givesTheSizesOfTheDocument_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("one byte") << 1;
    // Each is an edge of the payload's sizes, or with the page of the header one of all sizes.
    for (const int edge : {2112, 63 * 2112, 64 * 2112, 127 * 2112, 128 * 2112}) {
        for (int bytes = edge - 1; bytes <= edge + 1; ++bytes)
            QTest::newRow(qPrintable(QString::number(bytes))) << bytes;
    }
}

void FormatRulesTest::givesTheSizesOfTheDocument()
{
    QFETCH(int, bytes);
    m_tool.write("top.bin", ToolFixture::payload(bytes));
    const Run run = m_tool.run(
        Arguments{"create", m_tool.argument("top.bin"), "--force", "--no-companion", "--quiet"} +
        ToolFixture::described());
    QVERIFY2(run.code == 0, run.err);

    ForgedImage image;
    const PlainFcf made = PlainFcf::fromBytes(m_tool.read("top.fcf").toStdString());
    QCOMPARE(PlainRules::broken(made), std::string());
    std::copy(made.numbers.begin(), made.numbers.end(), image.numbers);
    image.payload = m_tool.read("top.bin");
    judge(image, true);
    for (int size = 0; size < 6; ++size) {
        ForgedImage other = image;
        ++other.numbers[size];
        judge(other, false);
    }
}

void FormatRulesTest::judgesANumberAsTheDocument_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isValid");
    const struct {
        const char* name;
        int index;
        QVector<int> valid;
        QVector<int> invalid;
    } rows[] = {
        {"module", 6, {1, 2}, {-1, 0, 3}},
        {"device", 7, {1, 2, 4}, {-1, 0, 3, 5, 8}},
        {"slot", 8, {1, 10}, {-1, 0, 11}},
        {"major version", 9, {0, 7, 2147483647}, {-1, -2147483647}},
        {"minor version", 10, {0, 7, 2147483647}, {-1, -2147483647}},
    };
    for (const auto& row : rows) {
        for (const int value : row.valid)
            QTest::addRow("%s %d", row.name, value) << row.index << value << true;
        for (const int value : row.invalid)
            QTest::addRow("%s %d", row.name, value) << row.index << value << false;
    }
}

void FormatRulesTest::judgesANumberAsTheDocument()
{
    QFETCH(int, index);
    QFETCH(int, value);
    QFETCH(bool, isValid);
    ForgedImage image;
    image.numbers[index] = value;
    judge(image, isValid);
}

void FormatRulesTest::judgesATextAsTheDocument_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<bool>("isValid");
    const auto row = [](const char* name, const char* before, const QByteArray& after,
                        bool isValid) {
        QTest::newRow(name) << QByteArray(before) << after << isValid;
    };
    row("a tab", "Rev B", "Rev\tB", true);
    row("several lines", "Rev B", "Rev B\n\nC", true);
    row("two dashes", "Rev B", "--", true);
    row("no description", "Rev B", "", true);
    row("a mark in an author", "Ann", "----", true);
    row("three dashes in a function's name", "fft", "---", true);
    row("midnight", "13:45:00", "00:00:00", true);
    row("the last second", "13:45:00", "23:59:59", true);
    row("no functions",
        "Function name: fft\nFunction author: Bob\nFunction CI No: 7\n"
        "Function description: Spectrum\n---\n",
        "", true);
    row("24 hours", "13:45:00", "24:00:00", false);
    row("60 minutes", "13:45:00", "13:60:00", false);
    row("60 seconds", "13:45:00", "13:45:60", false);
    row("a carriage return", "Rev B", "Rev\rB", false);
    row("an escape", "Ann", "A\x1bn", false);
    row("a delete", "Ann", "A\x7fn", false);
    row("a late control character", "Ann", "A\xc2\x85n", false);
    row("a line separator", "Rev B",
        "Rev\xe2\x80\xa8"
        "B",
        false);
    row("a paragraph separator", "Spectrum", "a\xe2\x80\xa9z", false);
    row("a mark in a description", "Rev B", "Rev --- B", false);
    row("a mark in a function's description", "Spectrum", "a---", false);
    row("a mark in a function's name", "fft", "f----t", false);
    row("a blank before a description", "Rev B", " Rev B", false);
    row("a line feed behind a description", "Rev B", "Rev B\n", false);
    row("a blank behind a function's description", "Spectrum", "Spectrum ", false);
    row("two lines of an author", "Ann", "An\nn", false);
    row("a line that is missing", "CI No: 42\n", "", false);
    row("lines in another order", "CI No: 42\nAuthor: Ann\n", "Author: Ann\nCI No: 42\n", false);
    row("a function's line that is missing", "Function author: Bob\n", "", false);
}

void FormatRulesTest::judgesATextAsTheDocument()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(bool, isValid);
    ForgedImage image;
    QCOMPARE(image.text.count(before), 1);
    image.text.replace(before, after);
    judge(image, isValid);
}

ZORV_TEST(FormatRulesTest)
#include "FormatRulesTest.moc"
