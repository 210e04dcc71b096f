#include "OutputKinds.h"
#include "support/PlainFcf.h"
#include "support/TestProgram.h"
#include "support/Unprivileged.h"
#include "tool/FaultyFileSystem.h"
#include "tool/ToolFixture.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

#include <sys/wait.h>

Q_DECLARE_METATYPE(OutputKind)

namespace {

using Permissions = QFile::Permissions;

const Permissions ForAllToRead = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
const Permissions ForAllToEnter =
    ForAllToRead | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
const Permissions ForAllToChange =
    ForAllToEnter | QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;

/// Lets every user into \p folder, which is below that of the temporary files.
void openToAll(const QString& folder)
{
    if (!folder.startsWith(QDir::tempPath() + '/'))
        return;
    QFile::setPermissions(folder, ForAllToEnter | QFile::WriteOwner);
    openToAll(QFileInfo(folder).path());
}

/// Makes a lock of settings as old as one that nobody respects any more, if its owner was killed
/// before it wrote who it is.
void age(const QString& lock)
{
    QFile file(lock);
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        file.setFileTime(QDateTime::currentDateTime().addSecs(-60),
                         QFileDevice::FileModificationTime);
}

/// Takes all the room there is in \p folder.
void fillDisk(const QString& folder)
{
    QFile filler(folder + "/filler");
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        qFatal("%s", qPrintable(filler.errorString()));
    for (int bytes = 65536; bytes > 0; bytes /= 2) {
        while (filler.write(QByteArray(bytes, 'x')) == bytes) {
        }
    }
}

} // namespace

/// Places that take no output, and programs that are killed while they write one: what the user is
/// told, and what is on the disk.
class OutputPlacesTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void reportsAFolderThatMayNotBeChanged_data();
    void reportsAFolderThatMayNotBeChanged();
    void leavesAFileThatMayNotBeChanged_data();
    void leavesAFileThatMayNotBeChanged();
    void writesThroughALinkOrReplacesIt_data();
    void writesThroughALinkOrReplacesIt();
    void reportsAFolderThatIsGone_data();
    void reportsAFolderThatIsGone();
    void reportsASmallDisk_data();
    void reportsASmallDisk();
    void leavesTheOldOrTheNewFileWhenKilled_data();
    void leavesTheOldOrTheNewFileWhenKilled();

private:
    /// Lets a child write, which is killed before the change of that number. Returns whether it
    /// was.
    bool writeKilled(int change);

    std::unique_ptr<Output> m_output;
};

void OutputPlacesTest::init()
{
    QFETCH(OutputKind, output);
    m_output = makeOutput(output);
    m_output->prepare();
}

namespace {

void addOutputs(const char* column, const std::vector<QString>& texts)
{
    QTest::addColumn<OutputKind>("output");
    QTest::addColumn<QString>(column);
    QTest::newRow("the window's image") << OutputKind::WindowImage << texts[0];
    QTest::newRow("the tool's image") << OutputKind::ToolImage << texts[1];
    QTest::newRow("an archive") << OutputKind::Archive << texts[2];
    QTest::newRow("a design's description") << OutputKind::Description << texts[3];
    QTest::newRow("settings") << OutputKind::Settings << texts[4];
}

} // namespace

void OutputPlacesTest::reportsAFolderThatMayNotBeChanged_data()
{
    addOutputs("told", {"can't open %1",
                        "pelk-fcf: error: %1: --output: cannot be written: Permission denied",
                        "Permission denied.", "%1: Permission denied.", ""});
}

void OutputPlacesTest::reportsAFolderThatMayNotBeChanged()
{
    QFETCH(QString, told);
    QFile::remove(m_output->file());
    const QStringList before = m_output->names();
    openToAll(m_output->folder());
    QFile::setPermissions(m_output->folder(), ForAllToEnter);
    QString text;
    {
        const Unprivileged user;
        if (!user.succeeded())
            QSKIP("there is no other user");
        text = m_output->write();
    }
    QCOMPARE(text.isEmpty(), told.isEmpty());
    QVERIFY2(text.contains(told.replace("%1", m_output->file())), qPrintable(text));
    QCOMPARE(m_output->names(), before);
    // The same works once the folder can be changed.
    openToAll(m_output->folder());
    QCOMPARE(m_output->write(), QString());
    QVERIFY(!m_output->content().isEmpty());
}

void OutputPlacesTest::leavesAFileThatMayNotBeChanged_data()
{
    addOutputs("told", {"can't open %1", "replaced", "%1", "%1: ", ""});
}

void OutputPlacesTest::leavesAFileThatMayNotBeChanged()
{
    QFETCH(QString, told);
    QCOMPARE(m_output->write(), QString());
    m_output->prepare();
    const QByteArray old = m_output->content();
    const QStringList before = m_output->names();
    openToAll(m_output->folder());
    QFile::setPermissions(m_output->folder(), ForAllToChange);
    QFile::setPermissions(m_output->file(), ForAllToRead);
    QString text;
    {
        const Unprivileged user;
        if (!user.succeeded())
            QSKIP("there is no other user");
        text = m_output->write();
    }
    // The tool was asked to replace it, for which a folder's permission is enough.
    if (told == "replaced") {
        QCOMPARE(text, QString());
        QVERIFY(m_output->content() != old);
        QCOMPARE(QFileInfo(m_output->file()).permissions() & ForAllToChange, ForAllToRead);
        return;
    }
    QCOMPARE(text.isEmpty(), told.isEmpty());
    QVERIFY2(text.contains(told.replace("%1", m_output->file())), qPrintable(text));
    QCOMPARE(m_output->content(), old);
    QCOMPARE(m_output->names(), before);
}

void OutputPlacesTest::writesThroughALinkOrReplacesIt_data()
{
    addOutputs("what", {"through", "replaced", "through", "through", "through"});
}

void OutputPlacesTest::writesThroughALinkOrReplacesIt()
{
    QFETCH(QString, what);
    const QTemporaryDir other;
    const QString target = other.filePath("target");
    QFile::remove(m_output->file());
    QFile file(target);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(QFile::link(target, m_output->file()));
    QCOMPARE(m_output->write(), QString());
    QVERIFY(!m_output->content().isEmpty());
    QCOMPARE(QFileInfo(m_output->file()).isSymLink(), what == "through");
    QCOMPARE(QFileInfo(target).size() > 0, what == "through");
}

void OutputPlacesTest::reportsAFolderThatIsGone_data()
{
    addOutputs("told", {"can't open %1", "top.bin: BIN: cannot be read: No such file or directory",
                        "", "%1: No such file or directory", ""});
}

void OutputPlacesTest::reportsAFolderThatIsGone()
{
    QFETCH(OutputKind, output);
    QFETCH(QString, told);
    QVERIFY(QDir(m_output->folder()).removeRecursively());
    const QString text = m_output->write();
    QVERIFY2(text.contains(told.replace("%1", m_output->file())), qPrintable(text));
    // Settings make their folder, and what they say is known again after a restart.
    QCOMPARE(QFileInfo::exists(m_output->folder()), output == OutputKind::Settings);
    QCOMPARE(text.isEmpty(), output == OutputKind::Settings);
}

void OutputPlacesTest::reportsASmallDisk_data()
{
    addOutputs("told",
               {"\"%1\" is not complete: No space left on device", "No space left on device",
                "No space left on device", "No space left on device", ""});
}

void OutputPlacesTest::reportsASmallDisk()
{
    QFETCH(QString, told);
    if (qEnvironmentVariableIsSet("SMALL_DISK")) {
        QCOMPARE(m_output->write(), QString());
        m_output->prepare();
        const QByteArray old = m_output->content();
        fillDisk(qEnvironmentVariable("SMALL_DISK"));
        const QString text = m_output->write();
        QCOMPARE(text.isEmpty(), told.isEmpty());
        QVERIFY2(text.contains(told.replace("%1", m_output->file())), qPrintable(text));
        // The window writes in place.
        if (!told.contains("is not complete"))
            QCOMPARE(m_output->content(), old);
        return;
    }
    // A file system of its own needs a namespace of its own, which not every machine gives.
    const QTemporaryDir disk;
    const QString script =
        "mount -t tmpfs -o size=1m tmpfs \"$2\" || exit 77; "
        "TMPDIR=\"$2\" SMALL_DISK=\"$2\" exec \"$0\" OutputPlacesTest \"reportsASmallDisk:$1\"";
    QProcess process;
    process.start("unshare",
                  {"--user", "--map-root-user", "--mount", "sh", "-c", script,
                   QCoreApplication::applicationFilePath(), QTest::currentDataTag(), disk.path()});
    if (!process.waitForStarted())
        QSKIP("there is no unshare");
    QVERIFY(process.waitForFinished(60000));
    const QByteArray output = process.readAllStandardOutput() + process.readAllStandardError();
    if (process.exitCode() == 77 || output.contains("unshare failed"))
        QSKIP("there is no file system for a user");
    QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, output);
}

void OutputPlacesTest::leavesTheOldOrTheNewFileWhenKilled_data()
{
    addOutputs("what", {"verified", "", "", "", ""});
}

bool OutputPlacesTest::writeKilled(int change)
{
    const pid_t child = ::fork();
    if (child == 0) {
        // The test library would print what it thinks of a signal.
        faults.signalledChange = change;
        m_output->write();
        ::_exit(0);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        qFatal("waitpid failed");
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

void OutputPlacesTest::leavesTheOldOrTheNewFileWhenKilled()
{
    QFETCH(QString, what);
    ToolFixture tool;
    int changes = 0;
    for (bool killed = true; killed; ++changes) {
        QCOMPARE(m_output->write(), QString());
        m_output->prepare();
        const QByteArray old = m_output->content();
        killed = writeKilled(changes);
        age(m_output->file() + ".lock");
        const QByteArray left = m_output->content();
        const int verified =
            what.isEmpty() ? -1 : tool.run({"verify", tool.argument(m_output->file())}).code;
        QCOMPARE(m_output->write(), QString());
        const QByteArray made = m_output->content();
        m_output->prepare();
        QVERIFY(made != old);
        if (verified < 0)
            QVERIFY2(left == old || left == made, qPrintable(m_output->file()));
        else
            QCOMPARE(verified, left == old || left == made ? 0 : 1);
    }
    QVERIFY(changes > 1);
}

ZORV_WINDOW_TEST(OutputPlacesTest)
#include "OutputPlacesTest.moc"
