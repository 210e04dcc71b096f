#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QtTest>

#include <csignal>

#include <unistd.h>

namespace {

/// Enough for a run to be ended in the middle of it.
constexpr qint64 LongCopy = 32 * 1024 * 1024;
constexpr int Ends = 6;

} // namespace

/// What the program leaves that is ended at any moment.
class SignalTest : public ProgramTest {
    Q_OBJECT

private slots:
    void leavesTheOldImageOrTheNewOne_data();
    void leavesTheOldImageOrTheNewOne();
};

void SignalTest::leavesTheOldImageOrTheNewOne_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("killed") << SIGKILL;
    QTest::newRow("terminated") << SIGTERM;
    QTest::newRow("interrupted") << SIGINT;
}

void SignalTest::leavesTheOldImageOrTheNewOne()
{
    QFETCH(int, signal);
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(::truncate(tool.argument("top.bin").c_str(), LongCopy), 0);
    const QStringList command = create(tool, "top.bin", {"--force"});
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(run(create(tool, "top.bin", {"--output", tool.path("other.fcf")})).code, 0);
    const int duration = static_cast<int>(timer.nsecsElapsed() / 1000);

    QRandomGenerator random(1);
    int ended = 0;
    for (int end = 0; ended < Ends && end < 20 * Ends; ++end) {
        // A run that ends well leaves an image that is old for the next one.
        const QByteArray old = tool.read("top.fcf");
        QProcess process;
        process.start(PELK_FCF, command);
        QVERIFY(process.waitForStarted());
        // No wait for something to happen: the moment is to be any.
        ::usleep(static_cast<useconds_t>(random.bounded(duration)));
        ::kill(static_cast<pid_t>(process.processId()), signal);
        ended += finished(&process).code == -1;
        if (tool.read("top.fcf") != old)
            QCOMPARE(tool.run({"verify", tool.argument("top.fcf"), "--bin",
                               tool.argument("top.bin"), "--companion", tool.argument("top.txt")})
                         .code,
                     0);
        if (signal != SIGKILL)
            QCOMPARE(tool.names(),
                     QStringList({"other.fcf", "other.txt", "top.bin", "top.fcf", "top.txt"}));
    }
    QCOMPARE(ended, Ends);
    QCOMPARE(run(command).code, 0);
    QCOMPARE(tool.names(),
             QStringList({"other.fcf", "other.txt", "top.bin", "top.fcf", "top.txt"}));
}

ZORV_TEST(SignalTest)
#include "SignalTest.moc"
