#include "fcf/FcfLayout.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

namespace {

QString readDocument(const char* name)
{
    QFile file(QStringLiteral(DOCUMENT_FOLDER "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll());
}

QString numberRows()
{
    QString rows;
    for (const auto& field : FcfLayout::Numbers)
        rows += QString("| %1 | %2 | `%3` | %4 | %5 |\n")
                    .arg(field.offset)
                    .arg(FcfLayout::WordBytes)
                    .arg(field.name, field.unit, field.meaning);
    return rows;
}

template <class Record, int Count>
QString textRows(const FcfLayout::TextField<Record> (&fields)[Count])
{
    QString rows;
    for (const auto& field : fields)
        rows += QString("| `%1` | `%2` | %3 | %4 | %5 |\n")
                    .arg(field.prefix, field.name,
                         field.whenWritten == FcfLayout::Trimmed ? "without blanks around it"
                                                                 : "as it is",
                         field.hasLines ? "any number" : "one", field.meaning);
    return rows;
}

/// totalPages as total_pages.
QString underscored(const QString& name)
{
    QString words = name;
    words.replace(QRegularExpression("([A-Z])"), "_\\1");
    return words.toLower();
}

/// Each first capture of \p pattern in \p text.
QStringList allOf(const QString& text, const QString& pattern)
{
    QStringList found;
    auto matches =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        found << matches.next().captured(1);
    return found;
}

/// The part of \p text from \p start on, up to \p end.
QString part(const QString& text, const QString& start, const QString& end)
{
    const int from = text.indexOf(start);
    const int to = text.indexOf(end, from);
    return from < 0 || to < 0 ? QString() : text.mid(from, to - from);
}

template <class Record, int Count>
QStringList namesOf(const FcfLayout::TextField<Record> (&fields)[Count])
{
    QStringList names;
    for (const auto& field : fields)
        names << field.name;
    return names;
}

template <class Record, int Count>
QStringList prefixesOf(const FcfLayout::TextField<Record> (&fields)[Count])
{
    QStringList prefixes;
    for (const auto& field : fields)
        prefixes << field.prefix;
    return prefixes;
}

QStringList numberNames()
{
    QStringList names;
    for (const auto& field : FcfLayout::Numbers)
        names << field.name;
    return names;
}

QStringList underscored(const QStringList& names)
{
    QStringList all;
    for (const QString& name : names)
        all << underscored(name);
    return all;
}

} // namespace

/// The descriptions of the format for people and for other programs agree with the tables.
class FormatDocumentTest : public QObject {
    Q_OBJECT

private slots:
    void theDocumentContainsTheTables();
    void theDocumentContainsTheConstants();
    void theExamplesOfSizesAreRight();
    void theOffsetsLeaveNoGap();
    void theKaitaiDescriptionAgrees();
    void theHexPatternAgrees();
};

void FormatDocumentTest::theDocumentContainsTheTables()
{
    const QString document = readDocument("fcf-format.md");
    for (const QString& rows :
         {numberRows(), textRows(FcfLayout::HeaderTexts), textRows(FcfLayout::FunctionTexts)})
        QVERIFY2(document.contains(rows), qPrintable("This is missing:\n" + rows));
}

void FormatDocumentTest::theDocumentContainsTheConstants()
{
    const QString document = readDocument("fcf-format.md");
    QVERIFY(document.contains(QString("A page of the flash is %1 bytes, a block %2 pages.")
                                  .arg(FcfLayout::PageBytes)
                                  .arg(FcfLayout::BlockPages)));
    QVERIFY(document.contains(QString("| %1 | %2 | `reserved` | | five words of 0x%3 |")
                                  .arg(FcfLayout::NumberCount * FcfLayout::WordBytes)
                                  .arg(FcfLayout::ReservedWordCount * FcfLayout::WordBytes)
                                  .arg(FcfLayout::ReservedWord, 8, 16)
                                  .toUpper()
                                  .replace("FIVE WORDS OF 0X", "five words of 0x")
                                  .replace("RESERVED", "reserved")));
    QVERIFY(document.contains(QString("a line `%1`, and for each").arg(FcfLayout::RecordEnd)));
    QVERIFY(document.contains(QString("A line `%1` ends the text").arg(FcfLayout::TextEnd)));
    QString units;
    for (const ushort unit : FcfLayout::FillerUnit)
        units += QString(" U+%1").arg(unit, 4, 16, QLatin1Char('0')).toUpper();
    QVERIFY(document.contains("characters" + units + " in"));
    const QByteArray bytes =
        QString(reinterpret_cast<const QChar*>(FcfLayout::FillerUnit), FcfLayout::FillerUnitLength)
            .toUtf8();
    QVERIFY(document.contains(QString(bytes.toHex(' ')).toUpper() + " in UTF-8"));
}

void FormatDocumentTest::theExamplesOfSizesAreRight()
{
    const PelkFcfGeneratorFileInfo info;
    const QString sizes = part(readDocument("fcf-format.md"), "### Sizes", "### Codes");
    auto rows = QRegularExpression("^\\| (\\d+) \\| (\\d+) \\| (\\d+) \\| (\\d+) \\|$",
                                   QRegularExpression::MultilineOption)
                    .globalMatch(sizes);
    int count = 0;
    for (; rows.hasNext(); ++count) {
        const QRegularExpressionMatch row = rows.next();
        const int bytes = row.captured(1).toInt();
        QCOMPARE(row.captured(2).toInt(),
                 (bytes + FcfLayout::PageBytes - 1) / FcfLayout::PageBytes);
        QCOMPARE(row.captured(3).toInt(), info.pages(bytes));
        QCOMPARE(row.captured(4).toInt(), info.blocks(bytes));
    }
    QCOMPARE(count, 7);

    const FcfSizes edge = info.measure(268223);
    QVERIFY(sizes.contains(QString("A payload of %1 bytes is at such an edge. It has %2 pages and "
                                   "%3 block. With the header it has %4\nbytes: %5 pages and %6 "
                                   "blocks")
                               .arg(edge.binFileSize)
                               .arg(edge.binPages)
                               .arg(edge.binBlocks)
                               .arg(edge.totalSize)
                               .arg(edge.totalPages)
                               .arg(edge.totalBlocks)));
}

void FormatDocumentTest::theOffsetsLeaveNoGap()
{
    int offset = 0;
    for (const auto& field : FcfLayout::Numbers) {
        QCOMPARE(field.offset, offset);
        offset += FcfLayout::WordBytes;
    }
    QCOMPARE(offset + FcfLayout::ReservedWordCount * FcfLayout::WordBytes, 64);
}

void FormatDocumentTest::theKaitaiDescriptionAgrees()
{
    const QString document = readDocument("fcf.ksy");
    QVERIFY(document.contains("endian: be\n"));
    QVERIFY(document.contains("encoding: UTF-8\n"));

    // In sequence, four bytes each: the names' order gives the offsets.
    const QString preamble = part(document, "  preamble:\n", "\n  text:\n");
    const QString id = "^      - id: (\\w+)$";
    QCOMPARE(allOf(preamble, id),
             underscored(numberNames()) + QStringList({"reserved", "line_feed"}));
    QCOMPARE(allOf(preamble, "^        type: (s4)$").size(), FcfLayout::NumberCount);
    QVERIFY(preamble.contains(QString("repeat-expr: %1\n").arg(FcfLayout::ReservedWordCount)));

    const QString text = part(document, "\n  text:\n", "\n  function_or_end:\n");
    const QString function = part(document, "\n  function:\n", "\n  line:\n");
    QCOMPARE(allOf(text, id),
             underscored(namesOf(FcfLayout::HeaderTexts)) + QStringList("functions"));
    QCOMPARE(allOf(function, id), underscored(namesOf(FcfLayout::FunctionTexts)));
    const QString lineType = "type: 'lines?\\(\"(.*)\"\\)'$";
    QCOMPARE(allOf(text, lineType), prefixesOf(FcfLayout::HeaderTexts));
    QCOMPARE(allOf(function, lineType), prefixesOf(FcfLayout::FunctionTexts));
    QVERIFY(document.contains(QString("_ == '%1'").arg(FcfLayout::RecordEnd)));
    QCOMPARE(document.count(QString::number(FcfLayout::PageBytes)), 2);
}

void FormatDocumentTest::theHexPatternAgrees()
{
    const QString document = readDocument("fcf.hexpat");
    QVERIFY(document.contains("#pragma endian big\n"));
    const QString preamble = part(document, "struct Preamble {", "};");
    QCOMPARE(allOf(preamble, "^    (?:s32|ModuleCode|DeviceCode) (\\w+);"), numberNames());
    QCOMPARE(allOf(preamble, "^    \\w+ (\\w+)(?:\\[\\w+\\])?;"),
             numberNames() + QStringList({"reserved", "lineFeed"}));
    QVERIFY(document.contains(
        QString("#define RESERVED_WORDS %1\n").arg(FcfLayout::ReservedWordCount)));
    QVERIFY(document.contains(QString("#define PAGE_BYTES %1\n").arg(FcfLayout::PageBytes)));

    const QString text = part(document, "struct Text {", "};");
    const QString function = part(document, "struct Function {", "};");
    QCOMPARE(allOf(text, "^    Lines? (\\w+);"),
             namesOf(FcfLayout::HeaderTexts) + QStringList("endMark"));
    QCOMPARE(allOf(function, "^    Lines? (\\w+);"), namesOf(FcfLayout::FunctionTexts));
    QCOMPARE(allOf(text, "// \"(.*)\"$"), prefixesOf(FcfLayout::HeaderTexts));
    QCOMPARE(allOf(function, "// \"(.*)\"$"), prefixesOf(FcfLayout::FunctionTexts));
}

QTEST_GUILESS_MAIN(FormatDocumentTest)
#include "FormatDocumentTest.moc"
