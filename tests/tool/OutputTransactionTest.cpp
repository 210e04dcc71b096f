#include "FaultyFileSystem.h"
#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "tool/commands/CommandLine.h"

#include <QBuffer>
#include <QFile>
#include <QtTest>

#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

/// How the outputs of a run get to their places, on file systems of several kinds.
class OutputTransactionTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { faults = Faults(); }
    void leavesNothingButTheOutputs_data() { addFileSystems(); }
    void leavesNothingButTheOutputs();
    void changesNothingUntilAllIsComplete_data() { addFileSystems(); }
    void changesNothingUntilAllIsComplete();
    void removesNewFilesWhenTheRestFails_data() { addFileSystems(); }
    void removesNewFilesWhenTheRestFails();
    void keepsTheOldImageWhenTheNewOneFails_data() { addFileSystems(); }
    void keepsTheOldImageWhenTheNewOneFails();
    void refusesAnOutputThatAppearsMeanwhile_data() { addFileSystems(); }
    void refusesAnOutputThatAppearsMeanwhile();
    void keepsTheModeOfWhatItReplaces_data() { addFileSystems(); }
    void keepsTheModeOfWhatItReplaces();
    void hidesWhatItReplacesFromTheStart();
    void takesTheLongestNameThereIs();
    void reportsAFolderThatIsNotSynced();
    void replacesWhereNothingCanBeLocked();
    void waitsForAnotherRunThatPlacesItsOutputs();
    void clearsWhatAKilledRunLeft();
    void readsNoSetThatIsBeingReplaced_data();
    void readsNoSetThatIsBeingReplaced();
    void extractsWhatItOpenedWhenThatIsReplaced();
    void addsNothingBesideAnImageThatWasReplaced();

private:
    static void addFileSystems();
    /// As the row says.
    static void breakFileSystem();
    Run create(const Arguments& more = {}) { return m_tool->run(m_tool->createAll(more)); }
    /// Makes all outputs, and then another binary.
    void makeOld();
    void verifyOld(const QStringList& names) const;

    std::unique_ptr<ToolFixture> m_tool;
    QMap<QString, QByteArray> m_old;
};

void OutputTransactionTest::init()
{
    m_tool = std::make_unique<ToolFixture>();
    m_tool->write("top.bin", ToolFixture::payload(4000));
}

void OutputTransactionTest::addFileSystems()
{
    QTest::addColumn<bool>("hasUnnamedFiles");
    QTest::addColumn<bool>("hasFlaggedRename");
    QTest::newRow("unnamed files") << true << true;
    QTest::newRow("named files") << false << true;
    QTest::newRow("named files, no flagged rename") << false << false;
}

void OutputTransactionTest::breakFileSystem()
{
    QFETCH(bool, hasUnnamedFiles);
    QFETCH(bool, hasFlaggedRename);
    faults.hasNoUnnamedFiles = !hasUnnamedFiles;
    faults.hasNoFlaggedRename = !hasFlaggedRename;
}

void OutputTransactionTest::makeOld()
{
    QCOMPARE(create().code, 0);
    for (const QString& name : allNames())
        m_old[name] = m_tool->read(name);
    m_tool->write("top.bin", ToolFixture::payload(5000));
}

void OutputTransactionTest::verifyOld(const QStringList& names) const
{
    for (const QString& name : names)
        QVERIFY2(m_tool->read(name) == m_old[name], qPrintable(name));
}

void OutputTransactionTest::leavesNothingButTheOutputs()
{
    breakFileSystem();
    QCOMPARE(create().code, 0);
    QCOMPARE(m_tool->names(), allNames());
    m_tool->write("top.bin", ToolFixture::payload(5000));
    QCOMPARE(create().code, 4);
    const Run replaced = create({"--force"});
    QVERIFY2(replaced.code == 0, replaced.err);
    QCOMPARE(m_tool->names(), allNames());
    QCOMPARE(m_tool->verifyAll().code, 0);
}

void OutputTransactionTest::changesNothingUntilAllIsComplete()
{
    makeOld();
    breakFileSystem();
    int namings = 0;
    faults.beforeNaming = [&](const QByteArray&) {
        if (namings++ == 0)
            verifyOld({"top.fcf", "top.fcf.sha256", "top.txt"});
    };
    QCOMPARE(create({"--force"}).code, 0);
    QVERIFY(namings >= 3);
}

void OutputTransactionTest::removesNewFilesWhenTheRestFails()
{
    breakFileSystem();
    faults.failsTo = [](const QByteArray& name) { return name == "top.fcf"; };
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: Input/output error"), run.err);
    QCOMPARE(m_tool->names(), QStringList("top.bin"));
}

void OutputTransactionTest::keepsTheOldImageWhenTheNewOneFails()
{
    makeOld();
    breakFileSystem();
    faults.failsTo = [](const QByteArray& name) { return name == "top.fcf"; };
    QCOMPARE(create({"--force"}).code, 3);
    QCOMPARE(m_tool->names(), allNames());
    verifyOld({"top.fcf"});
    // What is beside it is reported, and made right by the same command.
    QCOMPARE(m_tool->verifyAll().code, 1);
    faults.failsTo = nullptr;
    QCOMPARE(create({"--force"}).code, 0);
    QCOMPARE(m_tool->verifyAll().code, 0);
}

void OutputTransactionTest::refusesAnOutputThatAppearsMeanwhile()
{
    breakFileSystem();
    faults.beforeNaming = [&](const QByteArray& name) {
        if (name == "top.fcf")
            m_tool->write("top.fcf", "someone else's");
    };
    QCOMPARE(create().code, 4);
    QCOMPARE(m_tool->names(), QStringList({"top.bin", "top.fcf"}));
    QCOMPARE(m_tool->read("top.fcf"), QByteArray("someone else's"));
}

void OutputTransactionTest::keepsTheModeOfWhatItReplaces()
{
    makeOld();
    breakFileSystem();
    QCOMPARE(::chmod(m_tool->argument("top.fcf").c_str(), 0640), 0);
    QCOMPARE(::chmod(m_tool->argument("top.txt").c_str(), 0666), 0);
    QCOMPARE(create({"--force"}).code, 0);
    struct stat status;
    QCOMPARE(::stat(m_tool->argument("top.fcf").c_str(), &status), 0);
    QCOMPARE(status.st_mode & 0777u, 0640u);
    QCOMPARE(::stat(m_tool->argument("top.txt").c_str(), &status), 0);
    QCOMPARE(status.st_mode & 0777u, 0666u);
}

void OutputTransactionTest::hidesWhatItReplacesFromTheStart()
{
    makeOld();
    QCOMPARE(::chmod(m_tool->argument("top.fcf").c_str(), 0600), 0);
    faults.hasNoUnnamedFiles = true;
    faults.failsSync = true;
    faults.signalledChange = 1;
    // What a kill leaves here is the temporary file of the image.
    QVERIFY(m_tool->runKilled(m_tool->createAll({"--force"})));
    for (const QString& name : m_tool->names()) {
        struct stat status;
        if (!name.startsWith('.'))
            continue;
        QCOMPARE(::stat(m_tool->argument(name).c_str(), &status), 0);
        QCOMPARE(status.st_mode & 0777u, 0600u);
        return;
    }
    QFAIL("there is no temporary file");
}

void OutputTransactionTest::takesTheLongestNameThereIs()
{
    // Of two bytes each, and as long as a name can be.
    const QString name = QString(125, QChar(0x416)) + 'x';
    const Arguments create = Arguments{"create", m_tool->argument("top.bin"), "--output",
                                       m_tool->argument(name + ".fcf")} +
                             ToolFixture::described();
    QCOMPARE(m_tool->run(create).code, 0);
    QCOMPARE(m_tool->run(create + Arguments{"--force"}).code, 0);
    QCOMPARE(m_tool->names(), QStringList({"top.bin", name + ".fcf", name + ".txt"}));
}

void OutputTransactionTest::reportsAFolderThatIsNotSynced()
{
    faults.failsFolderSync = true;
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: Input/output error"), run.err);
}

void OutputTransactionTest::replacesWhereNothingCanBeLocked()
{
    makeOld();
    faults.hasNoLock = true;
    QCOMPARE(create({"--force"}).code, 0);
    QCOMPARE(m_tool->verifyAll().code, 0);
}

void OutputTransactionTest::waitsForAnotherRunThatPlacesItsOutputs()
{
    const int folder = ::open(m_tool->argument(".").c_str(), O_RDONLY | O_DIRECTORY);
    QCOMPARE(::flock(folder, LOCK_EX), 0);
    bool isReleased = false;
    faults.beforeNaming = [&](const QByteArray&) { QVERIFY(isReleased); };
    Run run;
    std::thread other([&] { run = create(); });
    // It has nothing to wait for but the lock once it opened the folder itself.
    const auto opened = [&] {
        int count = 0;
        for (const QString& link :
             QDir("/proc/self/fd").entryList(QDir::System | QDir::Files | QDir::Dirs))
            count += QFile::symLinkTarget("/proc/self/fd/" + link).startsWith(m_tool->path(""));
        return count;
    };
    QTRY_VERIFY(opened() >= 4);
    isReleased = true;
    ::close(folder);
    other.join();
    QCOMPARE(run.code, 0);
}

void OutputTransactionTest::clearsWhatAKilledRunLeft()
{
    makeOld();
    // It was killed between the two steps that replace a file.
    m_tool->write(".pelk-fcf-new", "left");
    QCOMPARE(create({"--force"}).code, 0);
    QCOMPARE(m_tool->names(), allNames());
    QCOMPARE(m_tool->verifyAll().code, 0);
}

void OutputTransactionTest::readsNoSetThatIsBeingReplaced_data()
{
    QTest::addColumn<QString>("command");
    for (const char* const command : {"verify", "extract", "list"})
        QTest::newRow(command) << command;
}

void OutputTransactionTest::readsNoSetThatIsBeingReplaced()
{
    QFETCH(QString, command);
    makeOld();
    Arguments arguments{command.toStdString(), m_tool->argument("top.fcf")};
    if (command == "extract")
        arguments = arguments + Arguments{"--output", "-"};
    if (command == "list")
        arguments.push_back("--digest");

    // Between two names of the writer, a reader begins. It ends or waits before the writer goes on.
    ToolFixture reader;
    Run read;
    std::thread other;
    std::promise<void> hasStopped;
    std::once_flag stopped;
    const auto stop = [&] { std::call_once(stopped, [&] { hasStopped.set_value(); }); };
    faults.beforeNaming = [&](const QByteArray& name) {
        if (name != "top.fcf" || other.joinable())
            return;
        faults.beforeLocking = stop;
        other = std::thread([&] {
            read = reader.run(arguments);
            stop();
        });
        hasStopped.get_future().wait();
    };
    QCOMPARE(create({"--force"}).code, 0);
    QVERIFY(other.joinable());
    other.join();

    QVERIFY2(read.code == 0, read.out + read.err);
    if (command == "extract")
        QCOMPARE(read.out, m_tool->read("top.bin"));
}

void OutputTransactionTest::extractsWhatItOpenedWhenThatIsReplaced()
{
    /// Standard output that has the image replaced when the first bytes come.
    class ReplacingOutput : public QBuffer {
    public:
        std::function<void()> replace;

    protected:
        qint64 writeData(const char* data, qint64 bytes) override
        {
            if (const auto first = std::exchange(replace, nullptr))
                first();
            return QBuffer::writeData(data, bytes);
        }
    };

    makeOld();
    const QByteArray payload = m_old["top.fcf"].right(4000);
    ReplacingOutput out;
    out.open(QIODevice::WriteOnly);
    out.replace = [this] { QCOMPARE(create({"--force"}).code, 0); };
    QBuffer in;
    QBuffer err;
    in.open(QIODevice::ReadOnly);
    err.open(QIODevice::WriteOnly);
    Environment environment = m_tool->environment;
    environment.in = &in;
    environment.out = &out;
    environment.err = &err;
    const int code =
        runCommandLine({"extract", m_tool->argument("top.fcf"), "--output", "-"}, environment);
    QVERIFY2(code == 0, err.data());
    QCOMPARE(out.data(), payload);
    QVERIFY(m_tool->read("top.fcf").right(4000) != payload);
}

void OutputTransactionTest::addsNothingBesideAnImageThatWasReplaced()
{
    QCOMPARE(create().code, 0);
    QVERIFY(QFile::remove(m_tool->path("top.txt")));
    // Another run replaces the image after it was compared, and before its companion is added.
    const QByteArray other = ForgedImage().bytes();
    bool isReplaced = false;
    faults.beforeLocking = [&] {
        if (std::exchange(isReplaced, true))
            return;
        QVERIFY(QFile::remove(m_tool->path("top.fcf")));
        m_tool->write("top.fcf", other);
    };
    const Run run = create({"--if-changed"});
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("another run has replaced it meanwhile"), run.err);
    QVERIFY(!m_tool->exists("top.txt"));
    QCOMPARE(m_tool->read("top.fcf"), other);
}

ZORV_TEST(OutputTransactionTest)
#include "OutputTransactionTest.moc"
