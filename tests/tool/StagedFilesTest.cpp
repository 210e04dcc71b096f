#include "ToolFixture.h"

#include "tool/StagedFile.h"

#include <QFile>
#include <QtTest>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

/// Outputs appear together or not at all, whatever happens in between.
class StagedFilesTest : public QObject {
    Q_OBJECT

private slots:
    void leavesNoTemporaryFile();
    void keepsTheModeOfWhatItReplaces();
    void leavesWhatWasThereWhenKilledAtAnyStep_data();
    void leavesWhatWasThereWhenKilledAtAnyStep();
    void takesBackWhatWasPlacedWhenTheRestFails_data();
    void takesBackWhatWasPlacedWhenTheRestFails();
    void refusesAnOutputThatAppearsMeanwhile();
    void clearsTheLeftoversOfAllOutputs();
    void keepsACompanionThatIsNoLeftover();
    void keepsOutOfTheWayOfAnotherRun();
    void followsNoLinkUnderATemporaryName();

private:
    /// Runs create in a process of its own that is killed before step \p killedAt, counted from 0.
    /// Returns whether it came that far.
    bool runKilled(ToolFixture* tool, const Arguments& arguments, int killedAt);
    Arguments create(const ToolFixture& tool, const Arguments& more = {})
    {
        return Arguments{"create", tool.argument("top.bin"), "--digest"} +
               ToolFixture::described() + more;
    }
};

bool StagedFilesTest::runKilled(ToolFixture* tool, const Arguments& arguments, int killedAt)
{
    const pid_t child = ::fork();
    if (child == 0) {
        int step = 0;
        tool->environment.beforeStep = [&step, killedAt](const char*) {
            if (step++ == killedAt)
                ::raise(SIGKILL);
        };
        tool->run(arguments);
        ::_exit(0);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        qFatal("waitpid failed");
    return WIFSIGNALED(status);
}

void StagedFilesTest::leavesNoTemporaryFile()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const QStringList all{"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"};
    QCOMPARE(tool.run(create(tool)).code, 0);
    QCOMPARE(tool.names(), all);
    QCOMPARE(tool.run(create(tool, {"--force"})).code, 0);
    QCOMPARE(tool.names(), all);
}

void StagedFilesTest::keepsTheModeOfWhatItReplaces()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(create(tool)).code, 0);
    const auto mode = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(QFile::setPermissions(tool.path("top.fcf"), mode));
    const auto companionMode = QFile::permissions(tool.path("top.txt"));
    QCOMPARE(tool.run(create(tool, {"--force"})).code, 0);
    QCOMPARE(QFile::permissions(tool.path("top.fcf")) & ~(QFile::ReadUser | QFile::WriteUser),
             mode);
    QCOMPARE(QFile::permissions(tool.path("top.txt")), companionMode);
}

void StagedFilesTest::leavesWhatWasThereWhenKilledAtAnyStep_data()
{
    QTest::addColumn<bool>("replacing");
    QTest::newRow("new files") << false;
    QTest::newRow("files that are replaced") << true;
}

void StagedFilesTest::leavesWhatWasThereWhenKilledAtAnyStep()
{
    QFETCH(bool, replacing);
    int steps = 0;
    for (bool killed = true; killed; ++steps) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        if (replacing)
            QCOMPARE(tool.run(create(tool)).code, 0);
        const QByteArray image = replacing ? tool.read("top.fcf") : QByteArray();
        const QByteArray companion = replacing ? tool.read("top.txt") : QByteArray();
        tool.write("top.bin", ToolFixture::payload(5000));
        const Arguments again = create(tool, replacing ? Arguments{"--force"} : Arguments());
        killed = runKilled(&tool, again, steps);

        // The image is the old one, or the new one with all that belongs to it.
        const QByteArray found = tool.exists("top.fcf") ? tool.read("top.fcf") : QByteArray();
        if (found == image) {
            QVERIFY(killed);
        } else {
            const Run verified =
                tool.run({"verify", tool.argument("top.fcf"), "--companion",
                          tool.argument("top.txt"), "--bin", tool.argument("top.bin")});
            QVERIFY2(verified.code == 0, verified.out);
            QVERIFY(tool.exists("top.fcf.sha256"));
        }
        // Even between two steps nothing of the old companion is lost.
        if (replacing && tool.read("top.txt") != companion && found == image)
            QVERIFY(image.startsWith(companion));

        // A next run is not held up, and clears what is left.
        const bool done = found != image;
        const Run next = tool.run(done ? create(tool, {"--force"}) : again);
        QVERIFY2(next.code == 0, next.err);
        QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
        QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), "--companion",
                           tool.argument("top.txt"), "--bin", tool.argument("top.bin")})
                     .code,
                 0);
    }
    // Three files to open, complete and place, the folder, and three to settle.
    QCOMPARE(steps - 1, 13);
}

void StagedFilesTest::takesBackWhatWasPlacedWhenTheRestFails_data()
{
    QTest::addColumn<bool>("replacing");
    QTest::addColumn<int>("failingPlace");
    for (int place = 0; place < 3; ++place) {
        QTest::addRow("new files, place %d", place) << false << place;
        QTest::addRow("files that are replaced, place %d", place) << true << place;
    }
}

void StagedFilesTest::takesBackWhatWasPlacedWhenTheRestFails()
{
    QFETCH(bool, replacing);
    QFETCH(int, failingPlace);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    if (replacing)
        QCOMPARE(tool.run(create(tool)).code, 0);
    const QByteArray image = replacing ? tool.read("top.fcf") : QByteArray();
    const QByteArray companion = replacing ? tool.read("top.txt") : QByteArray();
    const QByteArray digest = replacing ? tool.read("top.fcf.sha256") : QByteArray();
    tool.write("top.bin", ToolFixture::payload(5000));

    // A temporary file that is taken away cannot be put in place.
    const QString partials[] = {".top.fcf.sha256.pelk-fcf", ".top.txt.pelk-fcf",
                                ".top.fcf.pelk-fcf"};
    int places = 0;
    tool.environment.beforeStep = [&](const char* step) {
        if (qstrcmp(step, "place") == 0 && places++ == failingPlace)
            QFile::remove(tool.path(partials[failingPlace]));
    };
    const Run run = tool.run(create(tool, replacing ? Arguments{"--force"} : Arguments()));
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("--output: cannot be written: No such file or directory"), run.err);
    if (!replacing) {
        QCOMPARE(tool.names(), QStringList("top.bin"));
        return;
    }
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.txt"), companion);
    QCOMPARE(tool.read("top.fcf.sha256"), digest);
}

void StagedFilesTest::refusesAnOutputThatAppearsMeanwhile()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.environment.beforeStep = [&](const char* step) {
        if (qstrcmp(step, "place") == 0 && !tool.exists("top.fcf"))
            tool.write("top.fcf", "someone else's");
    };
    const Run run = tool.run(create(tool));
    QCOMPARE(run.code, 4);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf"}));
    QCOMPARE(tool.read("top.fcf"), QByteArray("someone else's"));
}

void StagedFilesTest::clearsTheLeftoversOfAllOutputs()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write(".top.fcf.pelk-fcf", "stale");
    tool.write(".top.txt.pelk-fcf", "stale");
    tool.write(".top.fcf.sha256.pelk-fcf", "stale");
    tool.write(".other.fcf.pelk-fcf", "of another image");
    const Run run = tool.run(Arguments{"create", tool.argument("top.bin"), "--no-companion"} +
                             ToolFixture::described());
    QCOMPARE(run.code, 0);
    QCOMPARE(tool.names(), QStringList({".other.fcf.pelk-fcf", "top.bin", "top.fcf"}));
}

void StagedFilesTest::keepsACompanionThatIsNoLeftover()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write("top.txt", "notes of mine");
    tool.write(".top.fcf.pelk-fcf", "stale, but of another companion");
    QCOMPARE(tool.run(create(tool)).code, 4);
    QCOMPARE(tool.read("top.txt"), QByteArray("notes of mine"));
}

void StagedFilesTest::keepsOutOfTheWayOfAnotherRun()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    StagedFile other(tool.path("top.fcf"));
    FileError error;
    QVERIFY(other.open(&error));
    const Run run = tool.run(create(tool));
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("cannot be written: another run of pelk-fcf is writing it"), run.err);
    QCOMPARE(tool.names(), QStringList({".top.fcf.pelk-fcf", "top.bin"}));
    QCOMPARE(other.file().write("mine"), qint64(4));
    QVERIFY(other.complete(&error) && other.place(false, &error));
    QCOMPARE(tool.read("top.fcf"), QByteArray("mine"));
}

void StagedFilesTest::followsNoLinkUnderATemporaryName()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write("precious", "precious");
    QVERIFY(QFile::link("precious", tool.path(".top.fcf.pelk-fcf")));
    const Run run = tool.run(create(tool));
    QCOMPARE(run.code, 3);
    QCOMPARE(tool.read("precious"), QByteArray("precious"));
    // A hard link is cleared without harm to the file's other name.
    QVERIFY(QFile::remove(tool.path(".top.fcf.pelk-fcf")));
    QCOMPARE(::link(tool.argument("precious").c_str(), tool.argument(".top.fcf.pelk-fcf").c_str()),
             0);
    QCOMPARE(tool.run(create(tool)).code, 0);
    QCOMPARE(tool.read("precious"), QByteArray("precious"));
}

QTEST_GUILESS_MAIN(StagedFilesTest)
#include "StagedFilesTest.moc"
