#include "ToolFixture.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRandomGenerator>
#include <QtTest>

#include <csignal>
#include <limits>

#include <sys/resource.h>
#include <unistd.h>

namespace {

/// Enough for a run to be killed in the middle of it.
constexpr int LargePayload = 4 * 1024 * 1024;
constexpr int Kills = 25;

/// A process that can write no more than this much into any file, as on a full disk.
class LimitedProcess : public QProcess {
public:
    explicit LimitedProcess(rlim_t fileBytes) : m_fileBytes(fileBytes) {}

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

/// The program itself, from outside.
class BlackBoxTest : public QObject {
    Q_OBJECT

private slots:
    void runsEveryCommand();
    void endsWithEachExitCode();
    void takesNamesOfAllKinds_data();
    void takesNamesOfAllKinds();
    void worksThroughPipes();
    void isCheckedBySha256sum();
    void obeysSourceDateEpoch();
    void takesADateAndTimeInEveryTimeZone();
    void leavesNothingOnAFullDisk_data();
    void leavesNothingOnAFullDisk();
    void tellsThatStandardOutputIsFull();
    void tellsThatNobodyReadsStandardOutput();
    void leavesNothingHalfWhenKilledAtAnyMoment();

private:
    Run run(const QStringList& arguments, const QByteArray& in = QByteArray(),
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    Run finished(QProcess* process) const;
    static QStringList create(const ToolFixture& tool, const QString& name,
                              const QStringList& more = {});
};

Run BlackBoxTest::run(const QStringList& arguments, const QByteArray& in,
                      const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(PELK_FCF, arguments);
    process.write(in);
    process.closeWriteChannel();
    return finished(&process);
}

Run BlackBoxTest::finished(QProcess* process) const
{
    if (!process->waitForFinished())
        qFatal("%s", qPrintable(process->errorString()));
    Run run;
    run.code = process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
    run.out = process->readAllStandardOutput();
    run.err = process->readAllStandardError();
    return run;
}

QStringList BlackBoxTest::create(const ToolFixture& tool, const QString& name,
                                 const QStringList& more)
{
    QStringList arguments{"create", tool.path(name)};
    for (const std::string& argument : ToolFixture::described())
        arguments << QString::fromStdString(argument);
    return arguments + more;
}

void BlackBoxTest::runsEveryCommand()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const QString image = tool.path("top.fcf");
    const Run made = run(create(tool, "top.bin", {"--function", "fft", "Bob", "7", "x"}));
    QCOMPARE(made.code, 0);
    QCOMPARE(made.err, QByteArray());
    QVERIFY(run({"show", image}).out.contains("  author         Ann\n"));
    QCOMPARE(
        run({"verify", image, "--bin", tool.path("top.bin"), "--companion", tool.path("top.txt")})
            .code,
        0);
    QCOMPARE(run({"extract", image, "--output", tool.path("out.bin")}).code, 0);
    QCOMPARE(tool.read("out.bin"), tool.read("top.bin"));
    const Run recipe = run({"recipe", image});
    QCOMPARE(recipe.json()["recipe"].toInt(), 1);
    tool.write("top.json", recipe.out);
    const Run again = run({"create", tool.path("top.bin"), "--like", tool.path("top.json"),
                           "--output", tool.path("sub.fcf"), "--json"});
    QCOMPARE(again.code, 0);
    QCOMPARE(again.json()["header"].toObject()["functions"].toArray().size(), 1);
}

void BlackBoxTest::endsWithEachExitCode()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write("bad.fcf", "bad");
    QCOMPARE(run(create(tool, "top.bin")).code, 0);
    QCOMPARE(run({"verify", tool.path("bad.fcf")}).code, 1);
    QCOMPARE(run({"verify", "--nonsense"}).code, 2);
    QCOMPARE(run(create(tool, "top.bin", {"--config", "11"})).code, 2);
    QCOMPARE(run(create(tool, "none.bin")).code, 3);
    QCOMPARE(run(create(tool, "top.bin")).code, 4);
    QCOMPARE(run({"--help"}).code, 0);
}

void BlackBoxTest::takesNamesOfAllKinds_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name :
         {"two words", " blanks ", "it's", "\"quoted\"", "$HOME `x`", "back\\slash", "Grün",
          "Карта",     "字節",     "😀",    "-dash",      "--force",   "[a,b]",       "{}",
          "%1",        "*?",       "a:b",  "a: b",       "~",         "tab\there",   "verify"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void BlackBoxTest::takesNamesOfAllKinds()
{
    QFETCH(QString, name);
    ToolFixture tool;
    QVERIFY(QDir().mkdir(tool.path(name)));
    tool.write(name + "/" + name + ".bin", ToolFixture::payload(100));
    QProcess process;
    process.setWorkingDirectory(tool.path(name));
    const auto runHere = [this, &process](QStringList arguments) {
        process.start(PELK_FCF, arguments);
        return finished(&process);
    };
    // From within the folder, where a name can look like an option.
    QStringList arguments = create(tool, "x", {"--digest"});
    arguments.removeAt(1);
    Run result = runHere(arguments + QStringList({"--", name + ".bin"}));
    QVERIFY2(result.code == 0, result.err);
    QVERIFY(tool.exists(name + "/" + name + ".fcf"));
    const QString image = tool.path(name + "/" + name + ".fcf");
    result = run({"verify", image, "--bin", tool.path(name + "/" + name + ".bin"), "--companion",
                  tool.path(name + "/" + name + ".txt")});
    QVERIFY2(result.code == 0, result.out + result.err);
    QVERIFY(!result.out.contains("holds no checksum"));
    QCOMPARE(run({"extract", image, "--output", tool.path(name + "/x")}).code, 0);
    const QJsonObject shown =
        run({"show", "--json", image}).json()["files"].toArray()[0].toObject();
    QCOMPARE(shown["header"].toObject()["fileName"].toString(), name + ".fcf");
}

void BlackBoxTest::worksThroughPipes()
{
    ToolFixture tool;
    const QByteArray payload = ToolFixture::payload(300000);
    tool.write("top.bin", payload);
    QStringList arguments = create(tool, "top.bin", {"--output", tool.path("a.fcf"), "--quiet"});
    arguments[1] = "-";
    QCOMPARE(run(arguments, payload).code, 0);
    const QByteArray image = tool.read("a.fcf");
    QCOMPARE(run({"extract", "-", "--output", "-"}, image).out, payload);
    QCOMPARE(run({"verify", "-", "--type", "image"}, image).code, 0);
    QCOMPARE(run({"verify", "-", "--type", "image"}, image.chopped(1)).code, 1);
    const Run streamed =
        run({"create", tool.path("top.bin"), "--like", "-", "--output", "-", "--no-companion"},
            run({"recipe", "-"}, image).out);
    QCOMPARE(streamed.code, 0);
    QCOMPARE(streamed.out.right(payload.size()), payload);
    QCOMPARE(run(arguments, QByteArray()).code, 2);
}

void BlackBoxTest::isCheckedBySha256sum()
{
    ToolFixture tool;
    tool.write("a\\b c.bin", ToolFixture::payload(100));
    QCOMPARE(run(create(tool, "a\\b c.bin", {"--digest"})).code, 0);
    QProcess process;
    process.setWorkingDirectory(tool.path("."));
    process.start("sha256sum", {"-c", "--strict", "a\\b c.fcf.sha256"});
    QCOMPARE(finished(&process).code, 0);
    // What sha256sum wrote is as good.
    process.start("sha256sum", {"a\\b c.fcf"});
    tool.write("a\\b c.fcf.sha256", finished(&process).out);
    const Run verified = run({"verify", tool.path("a\\b c.fcf")});
    QCOMPARE(verified.code, 0);
    QVERIFY(!verified.out.contains("holds no checksum"));
}

void BlackBoxTest::obeysSourceDateEpoch()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TZ", "America/New_York");
    environment.insert("SOURCE_DATE_EPOCH", "1717163100");
    QCOMPARE(run(create(tool, "top.bin", {"--date-format", "iso"}), {}, environment).code, 0);
    QVERIFY(tool.read("top.txt").contains("\nDate: 2024-05-31\nTime: 13:45:00\n"));
    environment.insert("SOURCE_DATE_EPOCH", "yesterday");
    const Run refused = run(create(tool, "top.bin", {"--force"}), {}, environment);
    QCOMPARE(refused.code, 2);
    QVERIFY(refused.err.contains("SOURCE_DATE_EPOCH: \"yesterday\" is not a number"));
}

void BlackBoxTest::takesADateAndTimeInEveryTimeZone()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Where clocks are put forward at two o'clock that night.
    environment.insert("TZ", "EST5EDT,M3.2.0,M11.1.0");
    const Run run = this->run(
        create(tool, "top.bin", {"--date-format", "iso", "--date-time", "2024-03-10T02:30:00"}), {},
        environment);
    QVERIFY2(run.code == 0, run.err);
    QVERIFY(tool.read("top.txt").contains("\nDate: 2024-03-10\nTime: 02:30:00\n"));
}

void BlackBoxTest::leavesNothingOnAFullDisk_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("no room at all") << 0;
    QTest::newRow("room for a part of the page") << 1000;
    QTest::newRow("room for the page") << 2112;
    QTest::newRow("room for all but a byte") << 2117 + 299999 - 5;
}

void BlackBoxTest::leavesNothingOnAFullDisk()
{
    QFETCH(int, bytes);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(300000));
    for (const bool replacing : {false, true}) {
        if (replacing)
            tool.write("top.fcf", "old");
        const QStringList before = tool.names();
        LimitedProcess process(static_cast<rlim_t>(bytes));
        process.start(PELK_FCF,
                      create(tool, "top.bin", replacing ? QStringList{"--force"} : QStringList()));
        const Run failed = finished(&process);
        QCOMPARE(failed.code, 3);
        QVERIFY2(failed.err.contains("top.fcf: --output: cannot be written: File too large"),
                 failed.err);
        QCOMPARE(tool.names(), before);
        if (replacing)
            QCOMPARE(tool.read("top.fcf"), QByteArray("old"));
    }
}

void BlackBoxTest::tellsThatStandardOutputIsFull()
{
    ToolFixture tool;
    tool.makeImage();
    const QString image = tool.path("top.fcf");
    for (const QStringList& arguments :
         {QStringList{"show", image}, QStringList{"recipe", image}, QStringList{"verify", image},
          QStringList{"extract", image, "--output", "-"},
          create(tool, "top.bin", {"--output", "-", "--no-companion"}), QStringList{"--help"}}) {
        QProcess process;
        process.setStandardOutputFile("/dev/full");
        process.start(PELK_FCF, arguments);
        const Run failed = finished(&process);
        QVERIFY2(failed.code == 3, qPrintable(arguments.first()));
        QVERIFY2(failed.err.contains("cannot be written: No space left on device"), failed.err);
    }
}

void BlackBoxTest::tellsThatNobodyReadsStandardOutput()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(LargePayload));
    QCOMPARE(run(create(tool, "top.bin")).code, 0);
    QProcess process;
    process.start("sh", {"-c", "\"$0\" extract \"$1\" --output - 2>\"$2\" | head -c 1 >/dev/null",
                         PELK_FCF, tool.path("top.fcf"), tool.path("err")});
    finished(&process);
    QVERIFY2(tool.read("err").contains("cannot be written: Broken pipe"), tool.read("err"));
}

void BlackBoxTest::leavesNothingHalfWhenKilledAtAnyMoment()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(LargePayload));
    const QStringList arguments = create(tool, "top.bin", {"--force", "--digest"});
    // A busy machine can only make a run longer, so the shortest says when to kill one.
    int duration = std::numeric_limits<int>::max();
    for (int warm = 0; warm < 5; ++warm) {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(run(arguments).code, 0);
        duration = qMin(duration, static_cast<int>(timer.nsecsElapsed() / 1000));
    }

    QRandomGenerator random(1);
    int killed = 0;
    for (int kill = 0; killed < Kills && kill < 20 * Kills; ++kill) {
        QProcess process;
        process.start(PELK_FCF, arguments);
        QVERIFY(process.waitForStarted());
        // No wait for something to happen: the moment is to be any.
        ::usleep(static_cast<useconds_t>(random.bounded(duration)));
        ::kill(static_cast<pid_t>(process.processId()), SIGKILL);
        killed += finished(&process).code == -1;
        // Old or new, image and companion are whole.
        const Run image = run({"verify", "-", "--type", "image", "--bin", tool.path("top.bin")},
                              tool.read("top.fcf"));
        QVERIFY2(image.code == 0, image.out);
        // The digest may be that of the image that was about to follow.
        QVERIFY(run({"verify", tool.path("top.fcf")}).code == 0 ||
                tool.exists(".top.fcf.pelk-fcf"));
        QCOMPARE(run({"verify", tool.path("top.txt"), "--bin", tool.path("top.bin")}).code, 0);
    }
    QCOMPARE(killed, Kills);
    QCOMPARE(run(arguments).code, 0);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(run({"verify", tool.path("top.fcf"), "--companion", tool.path("top.txt")}).code, 0);
}

QTEST_GUILESS_MAIN(BlackBoxTest)
#include "BlackBoxTest.moc"
