#include "ProgramTest.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QtTest>

#include <csignal>
#include <limits>

#include <unistd.h>

namespace {

/// Enough for a run to be ended in the middle of it.
constexpr int LargePayload = 4 * 1024 * 1024;
constexpr int Ends = 25;

} // namespace

/// What the program leaves that is ended at any moment.
class SignalTest : public ProgramTest {
    Q_OBJECT

private slots:
    void leavesNothingHalfWhenEndedAtAnyMoment_data();
    void leavesNothingHalfWhenEndedAtAnyMoment();

private:
    static int shortestRun(const QStringList& arguments);
};

/// In microseconds. A busy machine can only make a run longer, so it says when to end one.
int SignalTest::shortestRun(const QStringList& arguments)
{
    int shortest = std::numeric_limits<int>::max();
    for (int warm = 0; warm < 5; ++warm) {
        QElapsedTimer timer;
        timer.start();
        if (run(arguments).code != 0)
            qFatal("a run that nothing ends does not succeed");
        shortest = qMin(shortest, static_cast<int>(timer.nsecsElapsed() / 1000));
    }
    return shortest;
}

void SignalTest::leavesNothingHalfWhenEndedAtAnyMoment_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("killed") << SIGKILL;
    QTest::newRow("terminated") << SIGTERM;
    QTest::newRow("interrupted") << SIGINT;
}

void SignalTest::leavesNothingHalfWhenEndedAtAnyMoment()
{
    QFETCH(int, signal);
    ToolFixture tool;
    // Of two lengths, so that a companion of the one is not that of the other.
    tool.write("0.bin", ToolFixture::payload(LargePayload));
    tool.write("1.bin", ToolFixture::payload(LargePayload + 4096));
    const QString image = tool.path("top.fcf");
    const auto command = [&](int binary) {
        return create(tool, QString("%1.bin").arg(binary),
                      {"--force", "--digest", "--output", image});
    };
    const int duration = shortestRun(command(0));

    QRandomGenerator random(1);
    int ended = 0;
    for (int end = 0; ended < Ends && end < 20 * Ends; ++end) {
        QProcess process;
        process.start(PELK_FCF, command(end % 2));
        QVERIFY(process.waitForStarted());
        // No wait for something to happen: the moment is to be any.
        ::usleep(static_cast<useconds_t>(random.bounded(duration)));
        ::kill(static_cast<pid_t>(process.processId()), signal);
        ended += finished(&process).code == -1;
        // The image is whole, and one of the two.
        const QByteArray bytes = tool.read("top.fcf");
        int binary = 0;
        while (binary < 2 && run({"verify", "-", "--type", "image", "--bin",
                                  tool.path(QString("%1.bin").arg(binary))},
                                 bytes)
                                     .code != 0)
            ++binary;
        QVERIFY(binary < 2);
        // What belongs to it is beside it, but for a kill in between: then the next run knows.
        const Run verified = run({"verify", image, "--companion", tool.path("top.txt")});
        QVERIFY2(verified.code == 0 || (signal == SIGKILL && tool.exists(".top.fcf.pelk-fcf")),
                 verified.out);
    }
    QCOMPARE(ended, Ends);
    QCOMPARE(run(command(0)).code, 0);
    QCOMPARE(tool.names(), QStringList({"0.bin", "1.bin", "top.fcf", "top.fcf.sha256", "top.txt"}));
    QCOMPARE(
        run({"verify", image, "--companion", tool.path("top.txt"), "--bin", tool.path("0.bin")})
            .code,
        0);
}

QTEST_GUILESS_MAIN(SignalTest)
#include "SignalTest.moc"
