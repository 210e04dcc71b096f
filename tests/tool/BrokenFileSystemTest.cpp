#include "FaultyFileSystem.h"
#include "ToolFixture.h"

#include <QFile>
#include <QtTest>

#include <memory>
#include <utility>

/// Outputs are whole, or as they were before, on file systems that can do less or fail.
class BrokenFileSystemTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { faults = Faults(); }
    void replacesOnEveryFileSystem_data() { addFileSystems(); }
    void replacesOnEveryFileSystem();
    void takesBackOnEveryFileSystem_data() { addFileSystems(); }
    void takesBackOnEveryFileSystem();
    void takesAllBackWhenTheFolderIsNotSynced_data() { addFileSystems(); }
    void takesAllBackWhenTheFolderIsNotSynced();
    void tellsWhereAFileIsThatCannotBePutBack();
    void tellsWhichTemporaryNameStays();
    void tellsWhatItCannotClear();
    void leavesNothingWhereFilesCannotBeLocked();
    void losesNothingWhereAKilledRunCannotBeUndone();

private:
    static void addFileSystems();
    /// As the row says.
    static void breakFileSystem();
    Run create(const Arguments& more = {"--force"});
    void verifyOldFiles();

    std::unique_ptr<ToolFixture> m_tool;
    QByteArray m_image;
    QByteArray m_companion;
    QByteArray m_digest;
};

void BrokenFileSystemTest::init()
{
    m_tool = std::make_unique<ToolFixture>();
    m_tool->write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(create({}).code, 0);
    m_image = m_tool->read("top.fcf");
    m_companion = m_tool->read("top.txt");
    m_digest = m_tool->read("top.fcf.sha256");
    m_tool->write("top.bin", ToolFixture::payload(5000));
}

void BrokenFileSystemTest::addFileSystems()
{
    QTest::addColumn<bool>("hasFlaggedRename");
    QTest::addColumn<bool>("hasLinks");
    for (const bool hasFlaggedRename : {true, false}) {
        for (const bool hasLinks : {true, false})
            QTest::addRow("%s, %s", hasFlaggedRename ? "flagged rename" : "no flagged rename",
                          hasLinks ? "links" : "no links")
                << hasFlaggedRename << hasLinks;
    }
}

void BrokenFileSystemTest::breakFileSystem()
{
    QFETCH(bool, hasFlaggedRename);
    QFETCH(bool, hasLinks);
    faults.hasNoFlaggedRename = !hasFlaggedRename;
    faults.hasNoLink = !hasLinks;
}

Run BrokenFileSystemTest::create(const Arguments& more)
{
    return m_tool->run(m_tool->createAll(more));
}

void BrokenFileSystemTest::verifyOldFiles()
{
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(m_tool->read("top.fcf"), m_image);
    QCOMPARE(m_tool->read("top.txt"), m_companion);
    QCOMPARE(m_tool->read("top.fcf.sha256"), m_digest);
}

void BrokenFileSystemTest::replacesOnEveryFileSystem()
{
    breakFileSystem();
    const Run run = create();
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(m_tool
                 ->run({"verify", m_tool->argument("top.fcf"), "--companion",
                        m_tool->argument("top.txt"), "--bin", m_tool->argument("top.bin")})
                 .code,
             0);
    QCOMPARE(create({}).code, 4);
}

void BrokenFileSystemTest::takesBackOnEveryFileSystem()
{
    breakFileSystem();
    bool failed = false;
    faults.failsTo = [&failed](const QByteArray& to) {
        return to.endsWith("/top.fcf") && !std::exchange(failed, true);
    };
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: Input/output error"), run.err);
    verifyOldFiles();
}

void BrokenFileSystemTest::takesAllBackWhenTheFolderIsNotSynced()
{
    breakFileSystem();
    faults.syncsNoFolder = true;
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: Input/output error"), run.err);
    verifyOldFiles();
    for (const char* const name : {"top.fcf", "top.txt", "top.fcf.sha256"})
        QVERIFY(QFile::remove(m_tool->path(name)));
    QCOMPARE(create({}).code, 3);
    QCOMPARE(m_tool->names(), QStringList("top.bin"));
}

void BrokenFileSystemTest::tellsWhereAFileIsThatCannotBePutBack()
{
    // The companion is placed before the image, and cannot be put back when that fails.
    int companions = 0;
    faults.failsTo = [&companions](const QByteArray& to) {
        return to.endsWith("/top.fcf") || (to.endsWith("/top.txt") && companions++ > 0);
    };
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(
        run.err.contains("/top.txt could not be put back, what stood there before is kept as "),
        run.err);
    QCOMPARE(m_tool->read(".top.txt.pelk-fcf-kept"), m_companion);
    QCOMPARE(m_tool->read("top.fcf"), m_image);
    QCOMPARE(m_tool->read("top.fcf.sha256"), m_digest);
    // No other run takes that for its own.
    faults = Faults();
    faults.syncsNoFolder = true;
    QCOMPARE(create().code, 3);
    faults = Faults();
    QCOMPARE(create().code, 0);
    QCOMPARE(m_tool->read(".top.txt.pelk-fcf-kept"), m_companion);
}

void BrokenFileSystemTest::tellsWhichTemporaryNameStays()
{
    faults.failsUnlink = [](const QByteArray& path) { return path.endsWith("/.top.txt.pelk-fcf"); };
    const Run run = create();
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains(".top.txt.pelk-fcf: --output: is left of what was on the way, and "
                              "could not be removed"),
             run.err);
    faults = Faults();
    QCOMPARE(create().code, 0);
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
}

void BrokenFileSystemTest::tellsWhatItCannotClear()
{
    faults.failsUnlink = [](const QByteArray& path) {
        return path.endsWith("/.top.txt.pelk-fcf-old");
    };
    const Run run = create();
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("warning: "), run.err);
    QVERIFY2(
        run.err.contains(".top.txt.pelk-fcf-old: --output: is left of what was on the way, and "
                         "could not be removed"),
        run.err);
    QCOMPARE(m_tool->read(".top.txt.pelk-fcf-old"), m_companion);
    // The next run clears it.
    faults = Faults();
    QCOMPARE(create().code, 0);
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
}

void BrokenFileSystemTest::leavesNothingWhereFilesCannotBeLocked()
{
    faults.hasNoLock = true;
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: No locks available"), run.err);
    verifyOldFiles();
}

void BrokenFileSystemTest::losesNothingWhereAKilledRunCannotBeUndone()
{
    faults.killedBeforeChange = 10;
    QVERIFY(m_tool->runSignalled(m_tool->createAll({"--force"}), -1));
    faults = Faults();
    QVERIFY(m_tool->read("top.fcf.sha256") != m_digest && m_tool->read("top.fcf") == m_image);
    faults.hasNoLock = true;
    QCOMPARE(create().code, 3);
    faults = Faults();
    faults.syncsNoFolder = true;
    QCOMPARE(create().code, 3);
    verifyOldFiles();
}

QTEST_GUILESS_MAIN(BrokenFileSystemTest)
#include "BrokenFileSystemTest.moc"
