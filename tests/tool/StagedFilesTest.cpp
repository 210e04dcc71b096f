#include "ToolFixture.h"

#include "tool/StagedFile.h"

#include <QFile>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

/// Outputs appear together or not at all, whatever happens in between.
class StagedFilesTest : public QObject {
    Q_OBJECT

private slots:
    void leavesNoTemporaryFile();
    void keepsTheModeOfWhatItReplaces();
    void hidesWhatItReplacesFromTheStart();
    void takesTheLongestNameThereIs();
    void takesBackWhatWasPlacedWhenTheRestFails_data();
    void takesBackWhatWasPlacedWhenTheRestFails();
    void refusesAnOutputThatAppearsMeanwhile();
    void keepsWhatAnotherProgramPutInPlaceMeanwhile();
    void keepsOutOfTheWayOfAnotherRun();
    void followsNoLinkUnderATemporaryName();
};

void StagedFilesTest::leavesNoTemporaryFile()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const QStringList all{"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"};
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    QCOMPARE(tool.names(), all);
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 0);
    QCOMPARE(tool.names(), all);
}

void StagedFilesTest::keepsTheModeOfWhatItReplaces()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const auto mode = QFile::ReadOwner | QFile::WriteOwner;
    QVERIFY(QFile::setPermissions(tool.path("top.fcf"), mode));
    const auto companionMode = QFile::permissions(tool.path("top.txt"));
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 0);
    QCOMPARE(QFile::permissions(tool.path("top.fcf")) & ~(QFile::ReadUser | QFile::WriteUser),
             mode);
    QCOMPARE(QFile::permissions(tool.path("top.txt")), companionMode);
}

void StagedFilesTest::hidesWhatItReplacesFromTheStart()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    QCOMPARE(::chmod(tool.argument("top.fcf").c_str(), 0600), 0);
    int seen = 0;
    tool.environment.beforeStep = [&](const char* step) {
        struct stat status;
        if (qstrcmp(step, "open") == 0 &&
            ::stat(tool.argument(".top.fcf.pelk-fcf").c_str(), &status) == 0) {
            QCOMPARE(status.st_mode & 0777u, 0600u);
            ++seen;
        }
    };
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 0);
    QCOMPARE(seen, 2);
}

void StagedFilesTest::takesTheLongestNameThereIs()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    // Of two bytes each, and as long as a name can be.
    const QString name = QString(125, QChar(0x416)) + 'x';
    const Arguments more{"--output", tool.argument(name + ".fcf")};
    const Arguments create =
        Arguments{"create", tool.argument("top.bin")} + ToolFixture::described() + more;
    const QStringList names{"top.bin", name + ".fcf", name + ".txt"};
    QVERIFY(tool.runSignalled(create, 2));
    QCOMPARE(tool.names().size(), 2);
    QCOMPARE(tool.run(create).code, 0);
    QCOMPARE(tool.names(), names);
    QCOMPARE(tool.run(create + Arguments{"--force"}).code, 0);
    QCOMPARE(tool.names(), names);
    QCOMPARE(tool.run({"verify", tool.argument(name + ".fcf"), "--bin", tool.argument("top.bin"),
                       "--companion", tool.argument(name + ".txt")})
                 .code,
             0);
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
        QCOMPARE(tool.run(tool.createAll()).code, 0);
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
    const Run run = tool.run(tool.createAll(replacing ? Arguments{"--force"} : Arguments()));
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
    const Run run = tool.run(tool.createAll());
    QCOMPARE(run.code, 4);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf"}));
    QCOMPARE(tool.read("top.fcf"), QByteArray("someone else's"));
}

void StagedFilesTest::keepsWhatAnotherProgramPutInPlaceMeanwhile()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray companion = tool.read("top.txt");
    int places = 0;
    tool.environment.beforeStep = [&](const char* step) {
        if (qstrcmp(step, "place") != 0 || ++places < 3)
            return;
        QVERIFY(QFile::remove(tool.path("top.txt")));
        tool.write("top.txt", "someone else's");
        QVERIFY(QFile::remove(tool.path(".top.fcf.pelk-fcf")));
    };
    const Run run = tool.run(tool.createAll({"--force"}));
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.txt could not be put back, what stood there before is kept as "),
             run.err);
    QCOMPARE(tool.read("top.txt"), QByteArray("someone else's"));
    QCOMPARE(tool.read(".top.txt.pelk-fcf-kept"), companion);
}

void StagedFilesTest::keepsOutOfTheWayOfAnotherRun()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    StagedFile other(tool.path("top.fcf"));
    FileError error;
    QVERIFY(other.open(&error));
    const Run run = tool.run(tool.createAll());
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
    // A link is cleared without harm to what it leads to.
    const QStringList names{"precious", "top.bin", "top.fcf", "top.fcf.sha256", "top.txt"};
    QVERIFY(QFile::link("precious", tool.path(".top.fcf.pelk-fcf")));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    QCOMPARE(tool.names(), names);
    QCOMPARE(tool.read("precious"), QByteArray("precious"));
    QCOMPARE(::link(tool.argument("precious").c_str(), tool.argument(".top.fcf.pelk-fcf").c_str()),
             0);
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 0);
    QCOMPARE(tool.names(), names);
    QCOMPARE(tool.read("precious"), QByteArray("precious"));
}

QTEST_GUILESS_MAIN(StagedFilesTest)
#include "StagedFilesTest.moc"
