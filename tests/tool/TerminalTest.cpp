#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QDeadlineTimer>
#include <QtTest>

#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int PatienceMilliseconds = 60000;

/// A pseudo terminal, seen from the side of the person at it.
class Terminal {
public:
    Terminal() : m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
            qFatal("there is no terminal");
    }
    ~Terminal() { ::close(m_master); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    QByteArray name() const { return ::ptsname(m_master); }

    /// All that was shown up to now.
    const QByteArray& shown()
    {
        struct pollfd ready = {m_master, POLLIN, 0};
        char bytes[4096];
        while (::poll(&ready, 1, 0) == 1 && (ready.revents & POLLIN) != 0) {
            const ssize_t count = ::read(m_master, bytes, sizeof bytes);
            if (count <= 0)
                break;
            m_shown.append(bytes, static_cast<int>(count));
        }
        return m_shown;
    }

private:
    int m_master;
    QByteArray m_shown;
};

/// A process whose standard error is a terminal.
class ProcessAtTerminal : public QProcess {
public:
    explicit ProcessAtTerminal(const Terminal& terminal) : m_terminal(terminal.name()) {}

protected:
    void setupChildProcess() override
    {
        const int slave = ::open(m_terminal.constData(), O_RDWR | O_NOCTTY);
        ::dup2(slave, STDERR_FILENO);
        ::close(slave);
    }

private:
    const QByteArray m_terminal;
};

} // namespace

/// What a person at a terminal sees of the program.
class TerminalTest : public ProgramTest {
    Q_OBJECT

private slots:
    void showsProgressAtATerminalOnly();
    void writesNoBinaryDataToATerminal();
    void showsHowMuchOfASlowInputCameUnlessItIsToBeQuiet();
    void showsNothingOfAnInputThatIsThereAtOnce();
};

namespace {

/// A run of create that is fed by and by, and what the terminal shows of it.
class SlowRun {
public:
    SlowRun(const ToolFixture& tool, const QStringList& arguments) : m_process(m_terminal)
    {
        QStringList all = arguments;
        all[1] = "-";
        m_process.start(PELK_FCF, all << "--output" << tool.path("top.fcf"));
        m_process.write(ToolFixture::payload(1000));
    }

    void feed()
    {
        m_process.write("more");
        m_process.waitForBytesWritten(10);
    }

    QProcess* end()
    {
        m_process.closeWriteChannel();
        return &m_process;
    }

    const QByteArray& shown() { return m_terminal.shown(); }

private:
    Terminal m_terminal;
    ProcessAtTerminal m_process;
};

} // namespace

void TerminalTest::showsProgressAtATerminalOnly()
{
    ToolFixture tool;
    qint64 now = 0;
    tool.environment.milliseconds = [&now] { return now += 1100; };
    QVERIFY(!tool.createTop().err.contains('\r'));
    tool.environment.errIsTerminal = true;
    QVERIFY(tool.createTop({"--force"}).err.contains("\rcreate: 100 %\r\033[K"));
    QVERIFY(!tool.createTop({"--force", "--quiet"}).err.contains('\r'));
    tool.environment.milliseconds = [] { return 0; };
    QVERIFY(!tool.createTop({"--force"}).err.contains('\r'));
}

void TerminalTest::writesNoBinaryDataToATerminal()
{
    ToolFixture tool;
    tool.makeImage();
    tool.environment.outIsTerminal = true;
    const Run created = tool.createTop({"--output", "-", "--no-companion"});
    QCOMPARE(created.code, 2);
    QVERIFY2(created.err.contains("standard output: --output: is a terminal"), created.err);
    QCOMPARE(created.out, QByteArray());
    QCOMPARE(tool.run({"extract", tool.argument("top.fcf"), "--output", "-"}).code, 2);
    QCOMPARE(tool.run({"show", tool.argument("top.fcf")}).code, 0);
}

void TerminalTest::showsHowMuchOfASlowInputCameUnlessItIsToBeQuiet()
{
    ToolFixture tool;
    ToolFixture other;
    SlowRun quiet(other, create(other, "x", {"--quiet"}));
    SlowRun loud(tool, create(tool, "x"));
    const QDeadlineTimer deadline(PatienceMilliseconds);
    while (loud.shown().isEmpty() && !deadline.hasExpired()) {
        quiet.feed();
        loud.feed();
        ::usleep(10000);
    }
    QCOMPARE(finished(loud.end()).code, 0);
    QCOMPARE(finished(quiet.end()).code, 0);
    QVERIFY2(loud.shown().startsWith("\rreading standard input: 0.0 MiB"), loud.shown());
    QVERIFY2(loud.shown().endsWith("\r\033[K"), loud.shown());
    QVERIFY(tool.read("top.fcf").endsWith("more"));
    QCOMPARE(quiet.shown(), QByteArray());
}

void TerminalTest::showsNothingOfAnInputThatIsThereAtOnce()
{
    ToolFixture tool;
    SlowRun run(tool, create(tool, "x"));
    QCOMPARE(finished(run.end()).code, 0);
    QCOMPARE(run.shown(), QByteArray());
}

ZORV_TEST(TerminalTest)
#include "TerminalTest.moc"
