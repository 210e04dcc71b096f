#include "fcf/FcfWriter.h"
#include "host/app/HostFixture.h"
#include "host/app/SampleImage.h"

#include <OrvanticCore/Design.h>

#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTextCodec>
#include <QTreeWidget>
#include <QtTest>

#include <functional>

#include <sys/stat.h>

namespace {

constexpr int RowBytes = 16;

/// A type of its own, since other tests have changes as well.
struct PageChange : std::function<void(QByteArray*)> {
    using function::function;
};

/// A host with a design in which "top.fcf" is selected and its header page is shown.
class PageHost : public HostFixture {
public:
    PageHost() : PageHost(SampleImage::image(SampleImage::header("top.fcf", 1, 4), payload())) {}

    explicit PageHost(const QByteArray& image)
    {
        m_design = openDesign("radar");
        add("top.fcf", image);
        view()->setCurrentIndex(item("top.fcf"));
        press(Qt::Key_I, Qt::ControlModifier);
        QTest::mouseClick(child<QPushButton>("ShowPageButton"), Qt::LeftButton);
        if (!QTest::qWaitFor([this] { return bytes()->isVisible() && bytes()->isEnabled(); }))
            qFatal("the header page is not shown");
    }

    static QByteArray payload() { return SampleImage::binary(5000, 'p'); }

    void add(const QString& name, const QByteArray& bytes) const
    {
        m_design->restoreFile(writeFile("radar/" + name, bytes));
    }

    QTableView* bytes() const { return child<QTableView>("PageBytes"); }
    QTreeWidget* fields() const { return child<QTreeWidget>("PageFields"); }
    QString title() const { return child<QLabel>("PageTitle")->text(); }

    QModelIndex cell(int offset, int half = 0) const
    {
        return bytes()->model()->index(offset / RowBytes, offset % RowBytes + half * RowBytes);
    }

    /// What the cells show: the bytes of the hexadecimal numbers, and the characters.
    QByteArray shownBytes() const { return QByteArray::fromHex(shown(0)); }
    QByteArray shownCharacters() const { return shown(1); }

    /// The row of a field, or null.
    QTreeWidgetItem* field(const QString& name) const
    {
        return fields()->findItems(name, Qt::MatchExactly, 0).value(0);
    }
    /// "NAME|OFFSET|LENGTH|VALUE".
    QString row(const QString& name) const
    {
        const QTreeWidgetItem* const item = field(name);
        return item ? QStringList({item->text(0), item->text(1), item->text(2), item->text(3)})
                          .join('|')
                    : "no " + name;
    }
    QString currentField() const
    {
        return fields()->currentItem() ? fields()->currentItem()->text(0) : QString();
    }

    /// The offsets that are marked, if both halves have the same.
    QList<int> marked() const
    {
        QList<int> offsets[2];
        for (int row = 0; row < bytes()->model()->rowCount(); ++row) {
            for (int column = 0; column < 2 * RowBytes; ++column) {
                const QModelIndex index = bytes()->model()->index(row, column);
                if (bytes()->selectionModel()->isSelected(index))
                    offsets[column / RowBytes] << row * RowBytes + column % RowBytes;
            }
        }
        return offsets[0] == offsets[1] ? offsets[0] : QList<int>{-1};
    }
    static QList<int> range(int offset, int length)
    {
        QList<int> offsets;
        for (int place = offset; place < offset + length; ++place)
            offsets << place;
        return offsets;
    }

    void clickByte(int offset, int half = 0) const
    {
        bytes()->scrollTo(cell(offset, half));
        QTest::mouseClick(bytes()->viewport(), Qt::LeftButton, {},
                          bytes()->visualRect(cell(offset, half)).center());
    }
    void clickField(const QString& name) const
    {
        fields()->scrollToItem(field(name));
        QTest::mouseClick(fields()->viewport(), Qt::LeftButton, {},
                          fields()->visualItemRect(field(name)).center());
    }

private:
    QByteArray shown(int half) const
    {
        QByteArray texts;
        for (int offset = 0; cell(offset).isValid(); ++offset)
            texts += cell(offset, half).data().toString().toLatin1();
        return texts;
    }

    OrvanticCore::Design* m_design;
};

} // namespace

Q_DECLARE_METATYPE(PageChange)

/// The header page of an image as bytes and as fields.
class HeaderPageTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void showsTheBytesOfThePageAlone();
    void showsTheFieldsBesideTheBytes();
    void marksTheFieldOfAByte();
    void marksTheBytesOfAField();
    void followsTheKeysInBothViews();
    void showsWhatCanBeReadOfADamagedPage_data();
    void showsWhatCanBeReadOfADamagedPage();
    void showsAHeaderThatIsLongerThanAPage();
    void followsTheSelection();
    void showsACompanion();
    void readsNothingButFiles();
    void namesBytesForScreenReaders();
};

void HeaderPageTest::initTestCase()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

void HeaderPageTest::showsTheBytesOfThePageAlone()
{
    const PageHost host;
    const QByteArray image = host.bytesOf("radar/top.fcf");
    const int page = int(image.size()) - 5000;
    QCOMPARE(host.shownBytes(), image.left(page));
    QCOMPARE(host.shownCharacters().mid(64, 21), QByteArray(".Filename: top.fcf.CI"));
    QCOMPARE(host.shownCharacters().size(), page);
    const QAbstractItemModel* const model = host.bytes()->model();
    QCOMPARE(model->headerData(0, Qt::Vertical).toInt(), 0);
    QCOMPARE(model->headerData(5, Qt::Vertical).toInt(), 80);
    QCOMPARE(host.title(), QString("top.fcf: header page of %1 bytes").arg(page));
}

void HeaderPageTest::showsTheFieldsBesideTheBytes()
{
    const PageHost host;
    const QByteArray image = host.bytesOf("radar/top.fcf");
    const auto behind = [&image](const char* label) {
        return image.indexOf(label) + int(qstrlen(label));
    };
    QCOMPARE(host.row("binFileSize"), QString("binFileSize|20|4|5000"));
    QCOMPARE(host.row("moduleCode"), QString("moduleCode|24|4|2"));
    QCOMPARE(host.row("versionMinor"), QString("versionMinor|40|4|4"));
    QCOMPARE(host.row("reserved[3]"), QString("reserved[3]|56|4|0xFFFFFFFF"));
    QCOMPARE(host.row("fileName"), QString("fileName|75|7|top.fcf"));
    QCOMPARE(host.row("time"), QString("time|%1|8|01:02:03").arg(behind("\nTime: ")));
    QCOMPARE(
        host.row("description"),
        QString("description|%1|24|First line\\nRev: B: final").arg(behind("\nDescription: ")));
    QCOMPARE(host.row("functions[1].name"),
             QString("functions[1].name|%1|5|Pulse").arg(image.indexOf("Pulse\n")));
    QCOMPARE(host.row("functions[3].description"),
             QString("functions[3].description|%1|21|What it does: Clutter")
                 .arg(image.indexOf("What it does: Clutter")));
    const int end = int(image.indexOf("\n----\n")) + 6;
    QCOMPARE(host.row("textEnd"), QString("textEnd|%1|4|----").arg(end - 5));
    const int page = int(image.size()) - 5000;
    QCOMPARE(host.row("filler"), QString("filler|%1|%2|").arg(end).arg(page - end));
    QCOMPARE(host.fields()->topLevelItemCount(), 11 + 5 + 6 + 4 * 4 + 2);

    const QPoint bytes = host.bytes()->mapToGlobal(QPoint());
    const QPoint fields = host.fields()->mapToGlobal(QPoint());
    QCOMPARE(bytes.y(), fields.y());
    QVERIFY(bytes.x() + host.bytes()->width() <= fields.x());
}

void HeaderPageTest::marksTheFieldOfAByte()
{
    const PageHost host;
    const QByteArray image = host.bytesOf("radar/top.fcf");
    host.clickByte(29);
    QCOMPARE(host.currentField(), QString("deviceCode"));
    QCOMPARE(host.marked(), PageHost::range(28, 4));

    // "R. Vos" goes on in the next row.
    const int author = int(image.indexOf("R. Vos"));
    host.clickByte(author + 3, 1);
    QCOMPARE(host.currentField(), QString("author"));
    QCOMPARE(host.marked(), PageHost::range(author, 6));

    // The label of a text, and the mark behind a record.
    host.clickByte(image.indexOf("Time: ") + 1);
    QCOMPARE(host.currentField(), QString("time"));
    QCOMPARE(host.marked(), PageHost::range(image.indexOf("01:02:03"), 8));
    host.clickByte(image.indexOf("\n---\n") + 1);
    QCOMPARE(host.currentField(), QString("description"));
    host.clickByte(64);
    QCOMPARE(host.currentField(), QString("fileName"));
    host.clickByte(image.indexOf("\n----\n") + 2);
    QCOMPARE(host.currentField(), QString("textEnd"));
    host.clickByte(2113);
    QCOMPARE(host.currentField(), QString("filler"));
}

void HeaderPageTest::marksTheBytesOfAField()
{
    const PageHost host;
    const QByteArray image = host.bytesOf("radar/top.fcf");
    host.clickField("functions[2].ciNumber");
    const int number = int(image.indexOf("F-B\n"));
    QCOMPARE(host.marked(), PageHost::range(number, 3));
    QCOMPARE(host.bytes()->currentIndex(), host.cell(number));
    // The bytes come into sight.
    QVERIFY(host.bytes()->viewport()->rect().contains(
        host.bytes()->visualRect(host.cell(number)).center()));

    host.clickField("totalSize");
    QCOMPARE(host.marked(), PageHost::range(8, 4));
    QVERIFY(
        host.bytes()->viewport()->rect().contains(host.bytes()->visualRect(host.cell(8)).center()));
}

void HeaderPageTest::followsTheKeysInBothViews()
{
    const PageHost host;
    host.activate();
    host.bytes()->setFocus();
    QTest::keyClick(host.bytes(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(host.currentField(), QString("totalPages"));
    for (int step = 0; step < 15; ++step)
        QTest::keyClick(host.bytes(), Qt::Key_Right);
    QCOMPARE(host.currentField(), QString("binPages"));
    // On to the next row, and back.
    QTest::keyClick(host.bytes(), Qt::Key_Right);
    QCOMPARE(host.currentField(), QString("binBlocks"));
    QCOMPARE(host.bytes()->currentIndex(), host.cell(16));
    QTest::keyClick(host.bytes(), Qt::Key_Left);
    QCOMPARE(host.currentField(), QString("binPages"));
    QTest::keyClick(host.bytes(), Qt::Key_Down);
    QCOMPARE(host.currentField(), QString("deviceCode"));

    // Tab leaves the bytes for the fields.
    QTest::keyClick(host.bytes(), Qt::Key_Tab);
    QVERIFY(host.fields()->hasFocus());
    QTest::keyClick(host.fields(), Qt::Key_Down);
    QCOMPARE(host.currentField(), QString("configNumber"));
    QCOMPARE(host.marked(), PageHost::range(32, 4));
    QTest::keyClick(host.fields(), Qt::Key_End);
    QCOMPARE(host.currentField(), QString("filler"));
    QVERIFY(host.marked().contains(2112));
    QVERIFY(!host.marked().contains(35));
}

void HeaderPageTest::showsWhatCanBeReadOfADamagedPage_data()
{
    QTest::addColumn<PageChange>("change");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("reason");
    const QByteArray image =
        SampleImage::image(SampleImage::header("top.fcf", 1, 4), PageHost::payload());
    const int time = int(image.indexOf("Time: "));
    const int beam = int(image.indexOf("Author of Beam"));
    const int page = int(image.size()) - 5000;

    QTest::newRow("cut within a number")
        << PageChange([](QByteArray* bytes) { bytes->truncate(42); }) << 42 << "text|40|2|not read"
        << "it ends before the text";
    QTest::newRow("cut within a text") << PageChange([](QByteArray* bytes) { bytes->truncate(95); })
                                       << 95 << "ciNumber|83|12|CI No: CI-77"
                                       << "a line feed at the end of the line";
    QTest::newRow("a damaged label")
        << PageChange([time](QByteArray* bytes) { (*bytes)[time] = 'L'; }) << 2112
        << QString("time|%1|%2|Lime: 01:02:03").arg(time).arg(2112 - time) << "Lime: 01:02:03";
    QTest::newRow("no text of the encoding")
        << PageChange([beam](QByteArray* bytes) { (*bytes)[beam + 3] = '\xff'; }) << 2112
        << "functions[2].author"
        << "text that can be decoded";
    QTest::newRow("a text without an end")
        << PageChange([](QByteArray* bytes) { bytes->replace("\n----\n", "\n-x--\n"); }) << 2112
        << "functions[4].name"
        << "-x--";
    QTest::newRow("a damaged filler")
        << PageChange([page](QByteArray* bytes) { (*bytes)[page - 1] = 'F'; }) << page << "filler"
        << "is not what fills a header page";
    QTest::newRow("a wrong size") << PageChange([](QByteArray* bytes) { (*bytes)[11] = 3; }) << page
                                  << "totalSize"
                                  << "does not agree with a payload of 5000 bytes";
    QTest::newRow("another file") << PageChange([](QByteArray* bytes) { bytes->fill('x', 9000); })
                                  << 2112 << "text"
                                  << "is no FCF";
}

void HeaderPageTest::showsWhatCanBeReadOfADamagedPage()
{
    QFETCH(PageChange, change);
    QFETCH(int, bytes);
    QFETCH(QString, last);
    QFETCH(QString, reason);
    QByteArray image =
        SampleImage::image(SampleImage::header("top.fcf", 1, 4), PageHost::payload());
    change(&image);
    const PageHost host(image);
    QCOMPARE(host.shownBytes(), image.left(bytes));
    QVERIFY2(host.title().startsWith("top.fcf: NOT VALID, "), qPrintable(host.title()));
    QVERIFY2(host.title().contains(reason), qPrintable(host.title()));

    QTreeWidgetItem* const damaged =
        host.fields()->findItems(last.section('|', 0, 0), Qt::MatchExactly, 0).value(0);
    QVERIFY(damaged);
    const QString row = host.row(last.section('|', 0, 0));
    QVERIFY2(row.startsWith(last), qPrintable(row));
    QVERIFY(!damaged->icon(0).isNull());
    QVERIFY(damaged->toolTip(0).contains(reason.toHtmlEscaped()));
    // What is before the damage can be read, if it is a header.
    if (bytes > 95 && reason != "is no FCF")
        QCOMPARE(host.row("author"), QString("author|%1|6|R. Vos").arg(image.indexOf("R. Vos")));
}

void HeaderPageTest::showsAHeaderThatIsLongerThanAPage()
{
    FcfHeader header = SampleImage::header("top.fcf", 1, 4);
    for (int index = 0; index < 60; ++index)
        header.functions << FcfFunction{QString("F%1").arg(index), "a", "c", "d"};
    const QByteArray image = SampleImage::image(header, PageHost::payload());
    const int page = int(image.size()) - 5000;
    QVERIFY(page > 4096);
    const PageHost host(image);
    QCOMPARE(host.shownBytes(), image.left(page));
    QCOMPARE(host.row("functions[63].name"),
             QString("functions[63].name|%1|3|F59").arg(image.indexOf("F59\n")));
    QVERIFY2(host.title().contains("the text does not fit"), qPrintable(host.title()));
}

void HeaderPageTest::followsTheSelection()
{
    const PageHost host;
    FcfHeader header = SampleImage::header("other.fcf", 3, 9);
    header.author = "Another";
    host.add("other.fcf", SampleImage::image(header, PageHost::payload()));
    host.clickField("author");
    host.view()->setCurrentIndex(host.item("other.fcf"));
    QTRY_VERIFY(host.title().startsWith("other.fcf: "));
    // The same field is current in the other image.
    QCOMPARE(host.currentField(), QString("author"));
    QCOMPARE(host.fields()->currentItem()->text(3), QString("Another"));
    QCOMPARE(host.marked().size(), 7);
    QCOMPARE(host.row("versionMajor"), QString("versionMajor|36|4|3"));
}

void HeaderPageTest::showsACompanion()
{
    const PageHost host;
    const QByteArray page = host.shownBytes();
    host.add("top.txt", page);
    host.view()->setCurrentIndex(host.item("top.txt"));
    QTRY_COMPARE(host.title(), QString("top.txt: header page of %1 bytes").arg(page.size()));
    QCOMPARE(host.shownBytes(), page);
}

void HeaderPageTest::readsNothingButFiles()
{
    const PageHost host;
    const QString pipe = host.path("pipe.fcf");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    host.window()->inspect(pipe);
    QCOMPARE(host.title(), QString("pipe.fcf: NOT VALID, This is not a file."));
    QCOMPARE(host.bytes()->model()->rowCount(), 0);
    QCOMPARE(host.fields()->topLevelItemCount(), 0);

    host.window()->inspect(host.writeFile("empty.fcf", QByteArray()));
    QVERIFY(host.title().startsWith("empty.fcf: NOT VALID, "));
    QCOMPARE(host.bytes()->model()->rowCount(), 0);
    host.window()->inspect(host.path("gone.fcf"));
    QVERIFY(host.title().startsWith("gone.fcf: NOT VALID, "));
}

void HeaderPageTest::namesBytesForScreenReaders()
{
    const PageHost host;
    QCOMPARE(host.bytes()->accessibleName(), QString("Bytes of the header page"));
    QCOMPARE(host.fields()->accessibleName(), QString("Fields of the header page"));
    QCOMPARE(host.cell(27).data(Qt::AccessibleTextRole).toString(),
             QString("moduleCode: 0x02 at offset 27 (0x1b)"));
    // Behind the last byte there is nothing to go to.
    const int page = int(host.shownBytes().size());
    QVERIFY(host.cell(page - 1).flags().testFlag(Qt::ItemIsEnabled));
    QVERIFY(!host.bytes()->model()->flags(host.cell(page)).testFlag(Qt::ItemIsEnabled));
}

HOST_TEST(HeaderPageTest)

#include "HeaderPageTest.moc"
