#include "ToolFixture.h"

#include <QFile>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// What the file system cannot do, or refuses to.
struct Faults {
    bool hasNoFlaggedRename = false;
    bool hasNoLink = false;
    bool syncsNoFolder = false;
    /// Before which rename, link or removal from now on the process is killed, counted from 0, or
    /// -1.
    int killedBeforeChange = -1;
    /// Whether a rename or an exchange of the first to the second fails.
    std::function<bool(const QByteArray&, const QByteArray&)> failsRename;
    std::function<bool(const QByteArray&)> failsUnlink;
};

Faults faults;

void change()
{
    if (faults.killedBeforeChange >= 0 && faults.killedBeforeChange-- == 0)
        ::raise(SIGKILL);
}

int failed(int error)
{
    errno = error;
    return -1;
}

} // namespace

// The library's functions of these names give way to those of the program.

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept
{
    change();
    if (flags != 0 && faults.hasNoFlaggedRename)
        return failed(EINVAL);
    if (faults.failsRename && faults.failsRename(from, to))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

extern "C" int link(const char* from, const char* to) noexcept
{
    change();
    if (faults.hasNoLink)
        return failed(EPERM);
    return static_cast<int>(::syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}

extern "C" int unlink(const char* path) noexcept
{
    change();
    if (faults.failsUnlink && faults.failsUnlink(path))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

extern "C" int fsync(int descriptor)
{
    struct stat status;
    if (faults.syncsNoFolder && ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode))
        return failed(EIO);
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

/// Outputs are whole, or as they were before, on file systems that can do less or fail.
class BrokenFileSystemTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { faults = Faults(); }
    void replacesWithoutExchange_data() { addFileSystems(); }
    void replacesWithoutExchange();
    void takesBackWithoutExchange_data() { addFileSystems(); }
    void takesBackWithoutExchange();
    void losesNothingWhenKilledBetweenAnyTwoChanges_data();
    void losesNothingWhenKilledBetweenAnyTwoChanges();
    void takesAllBackWhenTheFolderIsNotSynced_data();
    void takesAllBackWhenTheFolderIsNotSynced();
    void tellsWhereAFileIsThatCannotBePutBack();
    void tellsWhatItCannotClear();

private:
    void addFileSystems();
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
    QTest::addColumn<bool>("hasLinks");
    QTest::newRow("no exchange") << true;
    QTest::newRow("neither exchange nor links") << false;
}

Run BrokenFileSystemTest::create(const Arguments& more)
{
    return m_tool->run(Arguments{"create", m_tool->argument("top.bin"), "--digest"} +
                       ToolFixture::described() + more);
}

void BrokenFileSystemTest::verifyOldFiles()
{
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(m_tool->read("top.fcf"), m_image);
    QCOMPARE(m_tool->read("top.txt"), m_companion);
    QCOMPARE(m_tool->read("top.fcf.sha256"), m_digest);
}

void BrokenFileSystemTest::replacesWithoutExchange()
{
    QFETCH(bool, hasLinks);
    faults.hasNoFlaggedRename = true;
    faults.hasNoLink = !hasLinks;
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

void BrokenFileSystemTest::takesBackWithoutExchange()
{
    QFETCH(bool, hasLinks);
    faults.hasNoFlaggedRename = true;
    faults.hasNoLink = !hasLinks;
    faults.failsRename = [](const QByteArray& from, const QByteArray& to) {
        return from.endsWith("/.top.fcf.pelk-fcf") && to.endsWith("/top.fcf");
    };
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: Input/output error"), run.err);
    verifyOldFiles();
}

void BrokenFileSystemTest::losesNothingWhenKilledBetweenAnyTwoChanges_data()
{
    QTest::addColumn<bool>("hasExchange");
    QTest::addColumn<bool>("hasLinks");
    QTest::addColumn<bool>("nextSucceeds");
    const struct {
        const char* name;
        bool hasExchange;
        bool hasLinks;
    } fileSystems[] = {{"exchange", true, true},
                       {"no exchange", false, true},
                       {"neither exchange nor links", false, false}};
    for (const auto& system : fileSystems) {
        QTest::addRow("%s, the next run succeeds", system.name)
            << system.hasExchange << system.hasLinks << true;
        QTest::addRow("%s, the next run fails", system.name)
            << system.hasExchange << system.hasLinks << false;
    }
}

void BrokenFileSystemTest::losesNothingWhenKilledBetweenAnyTwoChanges()
{
    QFETCH(bool, hasExchange);
    QFETCH(bool, hasLinks);
    QFETCH(bool, nextSucceeds);
    int calls = 0;
    for (bool killed = true; killed; ++calls) {
        init();
        faults.hasNoFlaggedRename = !hasExchange;
        faults.hasNoLink = !hasLinks;
        // Between any two changes in the folder, not only between the steps of the run.
        faults.killedBeforeChange = calls;
        killed = m_tool->runSignalled(m_tool->createAll({"--force"}), -1);
        faults.killedBeforeChange = -1;
        const bool isReplaced = m_tool->exists("top.fcf") && m_tool->read("top.fcf") != m_image;
        QVERIFY(killed || isReplaced);
        faults.syncsNoFolder = !nextSucceeds && !isReplaced;
        const Run next = create();
        QCOMPARE(next.code, nextSucceeds || isReplaced ? 0 : 3);
        faults = Faults();
        if (next.code != 0)
            verifyOldFiles();
        else
            QCOMPARE(m_tool->verifyAll().code, 0);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(calls)));
    }
    QVERIFY(calls > 6);
}

void BrokenFileSystemTest::takesAllBackWhenTheFolderIsNotSynced_data()
{
    QTest::addColumn<bool>("hasExchange");
    QTest::newRow("by exchange") << true;
    QTest::newRow("without exchange") << false;
}

void BrokenFileSystemTest::takesAllBackWhenTheFolderIsNotSynced()
{
    QFETCH(bool, hasExchange);
    faults.syncsNoFolder = true;
    faults.hasNoFlaggedRename = !hasExchange;
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
    int companionRenames = 0;
    faults.failsRename = [&companionRenames](const QByteArray&, const QByteArray& to) {
        return to.endsWith("/top.fcf") || (to.endsWith("/top.txt") && companionRenames++ > 0);
    };
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(
        run.err.contains("/top.txt could not be put back, what stood there before is kept as "),
        run.err);
    QCOMPARE(m_tool->read(".top.txt.pelk-fcf"), m_companion);
    QCOMPARE(m_tool->read("top.fcf"), m_image);
    QCOMPARE(m_tool->read("top.fcf.sha256"), m_digest);
}

void BrokenFileSystemTest::tellsWhatItCannotClear()
{
    faults.failsUnlink = [](const QByteArray& path) { return path.endsWith("/.top.txt.pelk-fcf"); };
    const Run run = create();
    QCOMPARE(run.code, 0);
    QVERIFY2(run.err.contains("warning: "), run.err);
    QVERIFY2(run.err.contains(".top.txt.pelk-fcf: --output: holds what was replaced, and could not "
                              "be removed"),
             run.err);
    QCOMPARE(m_tool->read(".top.txt.pelk-fcf"), m_companion);
    // The next run clears it.
    faults = Faults();
    QCOMPARE(create().code, 0);
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
}

QTEST_GUILESS_MAIN(BrokenFileSystemTest)
#include "BrokenFileSystemTest.moc"
