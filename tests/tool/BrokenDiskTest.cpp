#include "FaultyFileSystem.h"
#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QtTest>

#include <memory>

#include <sys/resource.h>

namespace {

/// A process that can write no more than this much into any file.
class LimitedProcess : public QProcess {
public:
    explicit LimitedProcess(rlim_t fileBytes) : m_fileBytes(fileBytes)
    {
        // A program with counters for coverage would cut the files of these, too, and spoil them.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("GCOV_PREFIX", UnwritableFolder);
        setProcessEnvironment(environment);
    }

protected:
    void setupChildProcess() override
    {
        const struct rlimit limit = {m_fileBytes, m_fileBytes};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

private:
    rlim_t m_fileBytes;
};

} // namespace

/// Every command on a disk that is full or breaks: it says so, and takes nothing for read or
/// written that is not.
class BrokenDiskTest : public ProgramTest {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { faults = Faults(); }
    void leavesWhatWasThereOnAFullDisk_data();
    void leavesWhatWasThereOnAFullDisk();
    void leavesWhatWasThereWhenFilesMayNotGrow();
    void needsRoomToSpoolStandardInput();
    void leavesWhatWasThereWhenTheDiskTakesNothing();
    void reportsAFolderThatVanishes();
    void reportsEachReadThatFails_data() { addCommands(); }
    void reportsEachReadThatFails();

private:
    static void addCommands();
    Arguments named(const QStringList& arguments) const;
    void verifyNothingChanged();

    std::unique_ptr<ToolFixture> m_tool;
    QMap<QString, QByteArray> m_before;
};

void BrokenDiskTest::init()
{
    m_tool = std::make_unique<ToolFixture>();
    m_tool->write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(m_tool->run(m_tool->createAll()).code, 0);
    m_tool->write("top.json", m_tool->run({"recipe", m_tool->argument("top.fcf")}).out);
    m_tool->write("notes", "Rev B");
    m_before.clear();
    for (const QString& name : m_tool->names())
        m_before[name] = m_tool->read(name);
}

void BrokenDiskTest::verifyNothingChanged()
{
    faults = Faults();
    QCOMPARE(m_tool->names(), m_before.keys());
    for (auto file = m_before.cbegin(); file != m_before.cend(); ++file)
        QVERIFY2(m_tool->read(file.key()) == file.value(), qPrintable(file.key()));
}

void BrokenDiskTest::leavesWhatWasThereOnAFullDisk_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<QString>("file");
    constexpr int page = 2116;
    constexpr int image = page + 4000;
    QTest::newRow("no room at all") << 0 << "top.fcf";
    QTest::newRow("room for a part of the page") << 1000 << "top.fcf";
    QTest::newRow("room for the page") << page << "top.fcf";
    QTest::newRow("room for all but a byte of the image") << image - 1 << "top.fcf";
    QTest::newRow("room for the image") << image << "top.txt";
    QTest::newRow("room for all but a byte of the companion") << image + page - 1 << "top.txt";
    QTest::newRow("room for all but the digest") << image + page << "top.fcf.sha256";
    QTest::newRow("room for a part of the digest") << image + page + 10 << "top.fcf.sha256";
}

void BrokenDiskTest::leavesWhatWasThereOnAFullDisk()
{
    QFETCH(int, room);
    QFETCH(QString, file);
    QCOMPARE(m_before["top.txt"].size(), 2116);
    faults.room = room;
    const Run run = m_tool->run(m_tool->createAll({"--force"}));
    QCOMPARE(run.code, 3);
    QCOMPARE(QString::fromUtf8(run.err),
             QString("pelk-fcf: error: %1: --output: cannot be written: No space left on device\n")
                 .arg(m_tool->path(file)));
    verifyNothingChanged();
}

/// The system ends a program that takes no notice of the limit.
void BrokenDiskTest::leavesWhatWasThereWhenFilesMayNotGrow()
{
    for (const QString output : {"top.fcf", "new.fcf"}) {
        LimitedProcess process(1000);
        process.start(PELK_FCF,
                      create(*m_tool, "top.bin", {"--force", "--output", m_tool->path(output)}));
        const Run failed = finished(&process);
        QCOMPARE(failed.code, 3);
        QVERIFY2(
            failed.err.contains(output.toUtf8() + ": --output: cannot be written: File too large"),
            failed.err);
        verifyNothingChanged();
    }
}

void BrokenDiskTest::needsRoomToSpoolStandardInput()
{
    m_tool->in = ToolFixture::payload(4000);
    faults.room = 3999;
    const Run run = m_tool->run(Arguments{"create", "-", "--output", m_tool->argument("new.fcf")} +
                                ToolFixture::described());
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("standard input: BIN: cannot be read: cannot be spooled: No space "
                              "left on device"),
             run.err);
    verifyNothingChanged();
}

void BrokenDiskTest::leavesWhatWasThereWhenTheDiskTakesNothing()
{
    faults.failsSync = true;
    const Run run = m_tool->run(m_tool->createAll({"--force"}));
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.fcf: --output: cannot be written: Input/output error"), run.err);
    verifyNothingChanged();
}

void BrokenDiskTest::reportsAFolderThatVanishes()
{
    const QString folder = m_tool->path("out");
    QVERIFY(QDir().mkdir(folder));
    // The clock is read after the binary was opened.
    m_tool->environment.clock = [&folder] {
        QDir(folder).removeRecursively();
        return QDateTime({2024, 5, 31}, {13, 45, 0});
    };
    const Run run = m_tool->run(m_tool->createAll({"--output", m_tool->argument("out/new.fcf")}));
    QCOMPARE(run.code, 3);
    QCOMPARE(QString::fromUtf8(run.err),
             QString("pelk-fcf: error: %1/new.fcf: --output: cannot be written: No such file or "
                     "directory\n")
                 .arg(folder));
    verifyNothingChanged();
}

void BrokenDiskTest::addCommands()
{
    QTest::addColumn<QStringList>("arguments");
    const QStringList described = [] {
        QStringList all;
        for (const std::string& argument : ToolFixture::described())
            all << QString::fromStdString(argument);
        return all;
    }();
    QTest::newRow("create") << QStringList{"create", "top.bin", "--force", "--digest"} + described;
    QTest::newRow("create like an image")
        << QStringList{"create", "top.bin", "--force", "--like", "top.fcf"};
    QTest::newRow("create like a recipe")
        << QStringList{"create", "top.bin", "--force", "--like", "top.json"};
    QTest::newRow("create with a description") << QStringList{
        "create", "top.bin", "--force", "--like", "top.txt", "--description", "@notes"};
    QTest::newRow("show an image") << QStringList{"show", "top.fcf"};
    QTest::newRow("show a companion") << QStringList{"show", "top.txt"};
    QTest::newRow("verify") << QStringList{"verify",  "top.fcf",     "--bin",
                                           "top.bin", "--companion", "top.txt"};
    QTest::newRow("verify a companion") << QStringList{"verify", "top.txt", "--bin", "top.bin"};
    QTest::newRow("extract") << QStringList{"extract", "top.fcf", "--output", "top.bin", "--force"};
    QTest::newRow("recipe") << QStringList{"recipe", "top.fcf"};
}

/// The names among \p arguments with the folder that they are in.
Arguments BrokenDiskTest::named(const QStringList& arguments) const
{
    Arguments all;
    for (const QString& argument : arguments) {
        const bool isText = argument.startsWith('@');
        const QString name = isText ? argument.mid(1) : argument;
        const std::string path = (isText ? "@" : "") + m_tool->argument(name);
        all.push_back(m_before.contains(name) ? path : argument.toStdString());
    }
    return all;
}

void BrokenDiskTest::reportsEachReadThatFails()
{
    QFETCH(QStringList, arguments);
    const Arguments command = named(arguments);
    int failures = 0;
    for (;; ++failures) {
        faults.failingRead = failures;
        const Run run = m_tool->run(command);
        const bool failed = faults.failingRead < 0;
        if (!failed) {
            QCOMPARE(run.code, 0);
            break;
        }
        QVERIFY2(run.code == 3, run.err);
        QVERIFY2(run.err.contains("cannot be read: Input/output error"), run.err);
        QVERIFY2(!run.err.contains("cannot be written"), run.err);
        verifyNothingChanged();
    }
    QVERIFY(failures > 0);
}

ZORV_TEST(BrokenDiskTest)
#include "BrokenDiskTest.moc"
