#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "support/ReadCount.h"

#include <QFile>
#include <QJsonArray>
#include <QtTest>

/// What list gives of images and folders.
class ListTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void listsTheImagesInFoldersByName();
    void givesCommaSeparatedValues();
    void givesJson();
    void givesJsonOfNothing();
    void reportsImagesForTheSameSlot();
    void countsASlotWithinOneFolder();
    void countsAFileOnce();
    void countsNoImageThatIsNotValid();
    void reportsThatNothingWasFound_data();
    void reportsThatNothingWasFound();
    void givesOneFormAlone();
    void readsHeaderPagesAlone();
    void doesNotCheckWhatFollowsThePayload();
    void showsTheDigestBesideAnImage();
    void computesDigests();
    void goesOnAfterABadFile();
    void listsNoStandardInput();
    void followsNoLinksToFolders();
    void letsNoTextAtTheTerminal();

private:
    /// An image for \p slot, with \p author.
    QByteArray image(int slot, const QByteArray& author = "Ann") const;
    Run list(const Arguments& more = {});
    QJsonObject row(const Run& run, int index) const
    {
        return run.json()["files"].toArray()[index].toObject();
    }

    std::unique_ptr<ToolFixture> m_tool;
};

void ListTest::init()
{
    m_tool = std::make_unique<ToolFixture>();
    QVERIFY(QDir().mkpath(m_tool->path("images/old")));
}

QByteArray ListTest::image(int slot, const QByteArray& author) const
{
    ForgedImage forged;
    forged.numbers[8] = slot;
    forged.text.replace("Ann", author);
    return forged.bytes();
}

Run ListTest::list(const Arguments& more)
{
    return m_tool->run(Arguments{"list", m_tool->argument("images")} + more);
}

void ListTest::listsTheImagesInFoldersByName()
{
    m_tool->write("images/top.fcf", image(2));
    m_tool->write("images/a.fcf", image(1));
    m_tool->write("images/old/b.fcf", image(3));
    m_tool->write("images/notes.txt", "no image");
    m_tool->write("images/UP.FCF", image(4));
    const Run run = list();
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err, QByteArray());
    const QList<QByteArray> lines = run.out.split('\n');
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines[0].simplified(), QByteArray("MODULE DEVICE SLOT VERSION AUTHOR CI DATE TIME "
                                               "BYTES SHA-256 VERDICT FILE REASON"));
    const QByteArray bytes = QByteArray::number(image(1).size());
    const char* const names[] = {"a.fcf", "old/b.fcf", "top.fcf"};
    const char* const slotNumbers[] = {"1", "3", "2"};
    for (int index = 0; index < 3; ++index)
        QCOMPARE(lines[index + 1].simplified(),
                 "DFE Interface_FPGA " + QByteArray(slotNumbers[index]) +
                     " 1.0 Ann 42 31 May 2024 13:45:00 " + bytes + " - valid " +
                     m_tool->path("images/").toUtf8() + names[index]);
}

void ListTest::givesCommaSeparatedValues()
{
    m_tool->write("images/a.fcf", image(1, "Ann, \"Bob\""));
    const Run run = list({"--csv"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out,
             "module,device,configNumber,version,author,ciNumber,date,time,bytes,sha256,verdict,"
             "file,reason\nDFE,Interface_FPGA,1,1.0,\"Ann, \"\"Bob\"\"\",42,31 May 2024,13:45:00," +
                 QByteArray::number(image(1, "Ann, \"Bob\"").size()) + ",,valid," +
                 m_tool->path("images/a.fcf").toUtf8() + ",\n");
}

void ListTest::givesJson()
{
    m_tool->write("images/a.fcf", image(1));
    m_tool->write("images/b.fcf", image(2));
    const Run run = list({"--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.json()["command"].toString(), QString("list"));
    QCOMPARE(run.json()["files"].toArray().size(), 2);
    const QJsonObject expected{{"file", m_tool->path("images/b.fcf")},
                               {"module", "DFE"},
                               {"device", "Interface_FPGA"},
                               {"configNumber", 2},
                               {"version", "1.0"},
                               {"author", "Ann"},
                               {"ciNumber", "42"},
                               {"date", "31 May 2024"},
                               {"time", "13:45:00"},
                               {"bytes", image(2).size()},
                               {"verdict", "valid"}};
    QCOMPARE(row(run, 1), expected);
}

void ListTest::givesJsonOfNothing()
{
    const Run run = list({"--json"});
    QCOMPARE(run.code, 0);
    QVERIFY(run.json()["files"].isArray());
    QCOMPARE(run.json()["files"].toArray().size(), 0);
}

void ListTest::reportsImagesForTheSameSlot()
{
    m_tool->write("images/a.fcf", image(1));
    m_tool->write("images/b.fcf", image(2));
    m_tool->write("images/c.fcf", image(1));
    const Run run = list({"--json"});
    QCOMPARE(run.code, 1);
    const QJsonObject finding = run.finding("configNumber");
    QCOMPARE(finding["file"].toString(), m_tool->path("images/a.fcf"));
    QCOMPARE(finding["reason"].toString(), "DFE Interface_FPGA slot 1 is that of 2 images, among "
                                           "them " +
                                               m_tool->path("images/c.fcf"));
    QVERIFY(list().out.contains("slot 1 is that of 2 images"));
    // What is read by a program has rows alone.
    const Run csv = list({"--csv"});
    QVERIFY(csv.err.contains("slot 1 is that of 2 images"));
    QCOMPARE(csv.out.count('\n'), 4);
}

void ListTest::readsHeaderPagesAlone()
{
    m_tool->write("images/a.fcf", image(1));
    const qint64 before = bytesReadSoFar();
    QCOMPARE(list().code, 0);
    const qint64 bytes = bytesReadSoFar() - before;
    // The page, then its text and filler once more for the check.
    QVERIFY2(bytes >= 2112 && bytes <= 2 * 2112 + CountingBytes,
             qPrintable(QString::number(bytes)));
}

void ListTest::countsASlotWithinOneFolder()
{
    m_tool->write("images/a.fcf", image(1));
    m_tool->write("images/old/a.fcf", image(1));
    QCOMPARE(list().code, 0);
    m_tool->write("images/old/b.fcf", image(1));
    const Run run = list();
    QCOMPARE(run.code, 1);
    QVERIFY2(
        run.out.contains("images/old/a.fcf: configNumber: DFE Interface_FPGA slot 1 is that of "
                         "2 images, among them "),
        run.out);
}

void ListTest::countsAFileOnce()
{
    m_tool->write("images/a.fcf", image(1));
    const std::string path = m_tool->argument("images/a.fcf");
    const std::string folder = m_tool->argument("images");
    Run run = m_tool->run({"list", "--json", path, folder, path, folder + "/../images/a.fcf"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.json()["files"].toArray().size(), 1);

    // Another name of the file is listed, and holds no other slot.
    QVERIFY(QFile::link("a.fcf", m_tool->path("images/latest.fcf")));
    run = list({"--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.json()["files"].toArray().size(), 2);
}

void ListTest::countsNoImageThatIsNotValid()
{
    m_tool->write("images/a.fcf", image(1));
    m_tool->write("images/b.fcf", image(1).chopped(1));
    const Run run = list();
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("not valid"), run.out);
    QVERIFY2(!run.out.contains("is that of 2 images"), run.out);
}

void ListTest::reportsThatNothingWasFound_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QByteArray>("headings");
    QTest::newRow("a table") << "--digest" << QByteArray("MODULE  DEVICE ");
    QTest::newRow("CSV") << "--csv" << QByteArray("module,device,configNumber,");
}

void ListTest::reportsThatNothingWasFound()
{
    QFETCH(QString, form);
    QFETCH(QByteArray, headings);
    const Run run = list({form.toStdString()});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.startsWith(headings), run.out);
    const QByteArray note = "/images: PATH: no .fcf file was found in it\n";
    QVERIFY2((form == "--csv" ? run.err : run.out).endsWith(note), run.out + run.err);
}

void ListTest::givesOneFormAlone()
{
    m_tool->write("images/a.fcf", image(1));
    const Run run = list({"--csv", "--json"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("--csv: cannot be given with --json"), run.err);
    QVERIFY(run.json()["findings"].toArray().size() == 1);
}

void ListTest::doesNotCheckWhatFollowsThePayload()
{
    m_tool->write("images/a.fcf", image(1) + QByteArray(100, '\xff'));
    Run run = list({"--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(row(run, 0)["verdict"].toString(), QString("not checked"));
    QCOMPARE(row(run, 0)["reason"].toString(), QString("100 bytes follow the payload"));
    run = list({"--json", "--digest"});
    QCOMPARE(run.code, 0);
    QCOMPARE(row(run, 0)["verdict"].toString(), QString("valid"));
    m_tool->write("images/a.fcf", image(1) + QByteArray(100, 'x'));
    run = list({"--json", "--digest"});
    QCOMPARE(run.code, 1);
    QCOMPARE(row(run, 0)["verdict"].toString(), QString("not valid"));
    m_tool->write("images/a.fcf", image(1).chopped(1));
    run = list({"--json"});
    QCOMPARE(run.code, 1);
    QCOMPARE(row(run, 0)["reason"].toString(),
             QString("payload: 1 byte is missing at the end; expected %1 bytes, found %2 bytes")
                 .arg(image(1).size())
                 .arg(image(1).size() - 1));
}

void ListTest::showsTheDigestBesideAnImage()
{
    const QByteArray digest(64, 'a');
    m_tool->write("images/a.fcf", image(1));
    m_tool->write("images/a.fcf.sha256", digest + "  a.fcf\n");
    QCOMPARE(row(list({"--json"}), 0)["sha256"].toString(), QString(digest));
    const QByteArray table = list().out;
    QVERIFY2(table.contains(' ' + digest.left(12) + ' '), table);
}

void ListTest::computesDigests()
{
    m_tool->write("images/a.fcf", image(1));
    const QByteArray own = sha256Of(image(1));
    Run run = list({"--json", "--digest"});
    QCOMPARE(run.code, 0);
    QCOMPARE(row(run, 0)["sha256"].toString(), QString(own));
    m_tool->write("images/a.fcf.sha256", own + "  a.fcf\n");
    QCOMPARE(list({"--digest"}).code, 0);
    m_tool->write("images/a.fcf.sha256", QByteArray(64, 'a') + "  a.fcf\n");
    run = list({"--json", "--digest"});
    QCOMPARE(run.code, 1);
    QCOMPARE(row(run, 0)["verdict"].toString(), QString("not valid"));
    QVERIFY(row(run, 0)["reason"].toString().startsWith("digest: is not that of "));
}

void ListTest::goesOnAfterABadFile()
{
    m_tool->write("images/a.fcf", "bad");
    m_tool->write("images/b.fcf", image(1));
    Run run = list({"--json"});
    QCOMPARE(run.code, 1);
    QCOMPARE(row(run, 0)["verdict"].toString(), QString("not valid"));
    QVERIFY(row(run, 0)["reason"].toString().contains("it ends before the text"));
    QCOMPARE(row(run, 1)["verdict"].toString(), QString("valid"));
    run = m_tool->run({"list", m_tool->argument("none.fcf"), m_tool->argument("images"), "--json"});
    QCOMPARE(run.code, 3);
    QCOMPARE(row(run, 0)["verdict"].toString(), QString("unreadable"));
    QCOMPARE(row(run, 0)["reason"].toString(),
             QString("cannot be read: No such file or directory"));
    QCOMPARE(run.json()["files"].toArray().size(), 3);
}

void ListTest::listsNoStandardInput()
{
    m_tool->in = image(1);
    const Run run = m_tool->run({"list", "-"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("PATH: standard input cannot be listed"), run.err);
}

void ListTest::followsNoLinksToFolders()
{
    m_tool->write("images/a.fcf", image(1));
    QVERIFY(QFile::link(m_tool->path("images"), m_tool->path("images/old/again")));
    QVERIFY(QFile::link(m_tool->path("images"), m_tool->path("images/old/again.fcf")));
    const Run run = list({"--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.json()["files"].toArray().size(), 1);
}

void ListTest::letsNoTextAtTheTerminal()
{
    m_tool->write("images/a.fcf", image(1, "\x1b[2J\u202eAnn"));
    for (const char* const form : {"--csv", "--json", "--digest"}) {
        const QByteArray out = list({form}).out;
        QVERIFY(out.contains("\\u001b[2J\\u202eAnn"));
        QVERIFY(!out.contains('\x1b'));
    }
}

ZORV_TEST(ListTest)
#include "ListTest.moc"
