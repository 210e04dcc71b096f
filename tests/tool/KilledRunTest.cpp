#include "ToolFixture.h"

#include <QFile>
#include <QtTest>

#include <csignal>

#include <unistd.h>

namespace {

/// What a killed run left, three files to open, complete and place, the folder, three to settle.
constexpr int StepsOfCreate = 14;
/// The last file to go; digest and companion are before it.
constexpr int PlaceOfImage = 9;

} // namespace

/// What a run leaves that is killed before any of its steps, and what the next one makes of it.
class KilledRunTest : public QObject {
    Q_OBJECT

private slots:
    void leavesWhatWasThereWhenKilledAtAnyStep_data();
    void leavesWhatWasThereWhenKilledAtAnyStep();
    void givesBackWhatAKilledRunReplaced_data();
    void givesBackWhatAKilledRunReplaced();
    void losesNothingOfARunThatEndsMeanwhile();
    void leavesACompanionThatTwoImagesShare();
    void clearsALinkThatAKilledRunReplaced();
    void waitsWithItsEndUntilAllIsInPlace_data();
    void waitsWithItsEndUntilAllIsInPlace();
    void keepsWhatItReplacedForAnotherCommandThatFails();
    void keepsWhatItReplacedForAnotherCommandThatIsKilled();
    void knowsAnImageThatHasAnotherName();
    void keepsWhatSomebodyWroteSince_data();
    void keepsWhatSomebodyWroteSince();
    void knowsAnImageThatWasMovedSince();
    void clearsTheLeftoversOfAllOutputs();
    void keepsACompanionThatIsNoLeftover();
};

void KilledRunTest::leavesWhatWasThereWhenKilledAtAnyStep_data()
{
    QTest::addColumn<bool>("replacing");
    QTest::newRow("new files") << false;
    QTest::newRow("files that are replaced") << true;
}

void KilledRunTest::leavesWhatWasThereWhenKilledAtAnyStep()
{
    QFETCH(bool, replacing);
    int steps = 0;
    for (bool killed = true; killed; ++steps) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        if (replacing)
            QCOMPARE(tool.run(tool.createAll()).code, 0);
        const QByteArray image = replacing ? tool.read("top.fcf") : QByteArray();
        const QByteArray companion = replacing ? tool.read("top.txt") : QByteArray();
        tool.write("top.bin", ToolFixture::payload(5000));
        const Arguments again = tool.createAll(replacing ? Arguments{"--force"} : Arguments());
        killed = tool.runSignalled(again, steps);

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
        const Run next = tool.run(done ? tool.createAll({"--force"}) : again);
        QVERIFY2(next.code == 0, next.err);
        QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
        QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), "--companion",
                           tool.argument("top.txt"), "--bin", tool.argument("top.bin")})
                     .code,
                 0);
    }
    QCOMPARE(steps - 1, StepsOfCreate);
}

void KilledRunTest::givesBackWhatAKilledRunReplaced_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("an image, its companion and its digest")
        << QStringList{"top.fcf", "top.txt", "top.fcf.sha256"};
    QTest::newRow("an image alone") << QStringList("top.fcf");
    QTest::newRow("a companion alone") << QStringList("top.txt");
    QTest::newRow("a digest alone") << QStringList("top.fcf.sha256");
}

void KilledRunTest::givesBackWhatAKilledRunReplaced()
{
    QFETCH(QStringList, before);
    for (int step = 0; step < StepsOfCreate; ++step) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        QCOMPARE(tool.run(tool.createAll()).code, 0);
        for (const char* const name : {"top.fcf", "top.txt", "top.fcf.sha256"}) {
            if (!before.contains(name))
                QVERIFY(QFile::remove(tool.path(name)));
        }
        const QStringList names = tool.names();
        QMap<QString, QByteArray> bytes;
        for (const QString& name : before)
            bytes[name] = tool.read(name);
        tool.write("top.bin", ToolFixture::payload(5000));
        QVERIFY(tool.runSignalled(tool.createAll({"--force"}), step));
        if (tool.exists("top.fcf") && tool.read("top.fcf") != bytes["top.fcf"])
            continue;

        // The next one fails, so that what it found is what remains.
        tool.failPlacing(".top.fcf.sha256.pelk-fcf");
        QCOMPARE(tool.run(tool.createAll({"--force"})).code, 3);
        QCOMPARE(tool.names(), names);
        for (const QString& name : before)
            QCOMPARE(tool.read(name), bytes[name]);
    }
}

void KilledRunTest::losesNothingOfARunThatEndsMeanwhile()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    // A companion without its image, as far as this run can see when it begins.
    QVERIFY(tool.runSignalled(tool.createAll(), PlaceOfImage));
    QVERIFY(tool.exists("top.txt") && !tool.exists("top.fcf"));
    bool ran = false;
    tool.environment.beforeStep = [&](const char* step) {
        if (ran || qstrcmp(step, "undo") != 0)
            return;
        ran = true;
        const Environment outer = tool.environment;
        QCOMPARE(tool.run(tool.createAll()).code, 0);
        tool.environment = outer;
    };
    const Run run = tool.run(tool.createAll());
    QVERIFY(ran);
    QCOMPARE(run.code, 4);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(tool.verifyAll().code, 0);
}

void KilledRunTest::leavesACompanionThatTwoImagesShare()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray image = tool.read("top.fcf");
    const QByteArray companion = tool.read("top.txt");
    const QByteArray digest = tool.read("top.fcf.sha256");
    // Another payload of the same length has the same companion. Killed with the digest in place.
    tool.write("top.bin", ToolFixture::payload(3999) + '!');
    QVERIFY(tool.runSignalled(tool.createAll({"--force", "--no-companion"}), 6));
    QVERIFY(tool.read("top.fcf") == image && tool.read("top.fcf.sha256") != digest);
    tool.failPlacing(".top.fcf.sha256.pelk-fcf");
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 3);
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.txt"), companion);
    QCOMPARE(tool.read("top.fcf.sha256"), digest);
}

void KilledRunTest::clearsALinkThatAKilledRunReplaced()
{
    for (int step = 0; step < StepsOfCreate; ++step) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        tool.write("precious", "precious");
        for (const char* const name : {"top.fcf", "top.txt", "top.fcf.sha256"})
            QVERIFY(QFile::link("precious", tool.path(name)));
        QVERIFY(tool.runSignalled(tool.createAll({"--force"}), step));
        QCOMPARE(tool.run(tool.createAll({"--force"})).code, 0);
        QCOMPARE(tool.names(),
                 QStringList({"precious", "top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
        QCOMPARE(tool.read("precious"), QByteArray("precious"));
        QCOMPARE(tool.verifyAll().code, 0);
    }
}

void KilledRunTest::waitsWithItsEndUntilAllIsInPlace_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("interrupted") << SIGINT;
    QTest::newRow("terminated") << SIGTERM;
    QTest::newRow("hung up") << SIGHUP;
    QTest::newRow("quit") << SIGQUIT;
}

void KilledRunTest::waitsWithItsEndUntilAllIsInPlace()
{
    QFETCH(int, signal);
    for (int step = PlaceOfImage - 2; step < StepsOfCreate; ++step) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        QCOMPARE(tool.run(tool.createAll()).code, 0);
        tool.write("top.bin", ToolFixture::payload(5000));
        QVERIFY(tool.runSignalled(tool.createAll({"--force"}), step, signal));
        QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
        QCOMPARE(tool.verifyAll().code, 0);
    }
}

void KilledRunTest::clearsTheLeftoversOfAllOutputs()
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

void KilledRunTest::keepsACompanionThatIsNoLeftover()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write("top.txt", "notes of mine");
    tool.write(".top.fcf.pelk-fcf", "stale, but of another companion");
    QCOMPARE(tool.run(tool.createAll()).code, 4);
    QCOMPARE(tool.read("top.txt"), QByteArray("notes of mine"));
}

void KilledRunTest::keepsWhatItReplacedForAnotherCommandThatFails()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray image = tool.read("top.fcf");
    const QByteArray companion = tool.read("top.txt");
    tool.write("src.fcf", image);
    tool.write("top.bin", ToolFixture::payload(5000));
    QVERIFY(tool.runSignalled(tool.createAll({"--force"}), PlaceOfImage));
    QVERIFY(tool.read("top.txt") != companion);
    tool.failPlacing(".top.txt.pelk-fcf");
    QCOMPARE(tool.run({"extract", tool.argument("src.fcf"), "--output", tool.argument("top.txt"),
                       "--force"})
                 .code,
             3);
    tool.failPlacing(".top.fcf.pelk-fcf");
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 3);
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.txt"), companion);
}

void KilledRunTest::keepsWhatItReplacedForAnotherCommandThatIsKilled()
{
    // Before it opens, completes and places its file.
    for (int step = 0; step < 3; ++step) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        QCOMPARE(tool.run(tool.createAll()).code, 0);
        const QByteArray image = tool.read("top.fcf");
        const QByteArray companion = tool.read("top.txt");
        tool.write("src.fcf", image);
        tool.write("top.bin", ToolFixture::payload(5000));
        QVERIFY(tool.runSignalled(tool.createAll({"--force"}), PlaceOfImage));
        QVERIFY(tool.runSignalled(
            {"extract", tool.argument("src.fcf"), "--output", tool.argument("top.txt"), "--force"},
            step));
        tool.failPlacing(".top.fcf.pelk-fcf");
        QCOMPARE(tool.run(tool.createAll({"--force"})).code, 3);
        QCOMPARE(tool.read("top.fcf"), image);
        QCOMPARE(tool.read("top.txt"), companion);
    }
}

void KilledRunTest::knowsAnImageThatHasAnotherName()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray companion = tool.read("top.txt");
    tool.write("top.bin", ToolFixture::payload(5000));
    QVERIFY(tool.runSignalled(tool.createAll({"--force"}), PlaceOfImage));
    // As in a copy of the folder that is made of links.
    QCOMPARE(::link(tool.argument(".top.fcf.pelk-fcf").c_str(), tool.argument("copy").c_str()), 0);
    tool.failPlacing(".top.fcf.pelk-fcf");
    QCOMPARE(tool.run(tool.createAll({"--force"})).code, 3);
    QCOMPARE(tool.read("top.txt"), companion);
}

void KilledRunTest::keepsWhatSomebodyWroteSince_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("into the companion") << "top.txt" << QByteArray("my own notes");
    QTest::newRow("nothing into the companion") << "top.txt" << QByteArray("");
    QTest::newRow("into the digest") << "top.fcf.sha256" << QByteArray("my own sums");
}

void KilledRunTest::keepsWhatSomebodyWroteSince()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, written);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QVERIFY(tool.runSignalled(tool.createAll(), PlaceOfImage));
    // Still the file that the run made.
    tool.write(name, written);
    QCOMPARE(tool.run(tool.createAll()).code, 4);
    QCOMPARE(tool.read(name), written);
    const Run run = tool.run(Arguments{"create", tool.argument("top.bin"), "--no-companion"} +
                             ToolFixture::described());
    QCOMPARE(run.code, 0);
    QCOMPARE(tool.read(name), written);
}

void KilledRunTest::knowsAnImageThatWasMovedSince()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QVERIFY(tool.runSignalled(tool.createAll(), StepsOfCreate - 1));
    const QByteArray companion = tool.read("top.txt");
    QVERIFY(QDir().mkdir(tool.path("release")));
    QVERIFY(QFile::rename(tool.path("top.fcf"), tool.path("release/top.fcf")));
    tool.write("top.bin", ToolFixture::payload(5000));
    QCOMPARE(tool.run(tool.createAll()).code, 4);
    QCOMPARE(tool.read("top.txt"), companion);
}

QTEST_GUILESS_MAIN(KilledRunTest)
#include "KilledRunTest.moc"
