#include "ProgramTest.h"

#include <QDeadlineTimer>
#include <QtTest>

#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int PatienceMilliseconds = 60000;

/// A pseudo terminal, seen from the side of who sits at it.
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
    void showsHowMuchOfASlowInputCame();
    void showsNothingOfAnInputThatIsThereAtOnce();
    void showsNothingWhenItIsToBeQuiet();

private:
    /// Feeds create slowly until something is shown or \p milliseconds are over. Returns what the
    /// terminal showed until the end.
    static QByteArray feedSlowly(ToolFixture* tool, int milliseconds, const QStringList& more = {});
};

QByteArray TerminalTest::feedSlowly(ToolFixture* tool, int milliseconds, const QStringList& more)
{
    Terminal terminal;
    ProcessAtTerminal process(terminal);
    QStringList arguments =
        create(*tool, "x", more + QStringList{"--output", tool->path("top.fcf")});
    arguments[1] = "-";
    process.start(PELK_FCF, arguments);
    process.write(ToolFixture::payload(1000));
    const QDeadlineTimer deadline(milliseconds);
    while (terminal.shown().isEmpty() && !deadline.hasExpired()) {
        process.write("more");
        process.waitForBytesWritten(10);
        ::usleep(10000);
    }
    process.closeWriteChannel();
    if (finished(&process).code != 0)
        qFatal("%s", terminal.shown().constData());
    return terminal.shown();
}

void TerminalTest::showsHowMuchOfASlowInputCame()
{
    ToolFixture tool;
    const QByteArray shown = feedSlowly(&tool, PatienceMilliseconds);
    QVERIFY2(shown.startsWith("\rreading standard input: 0.0 MiB"), shown);
    QVERIFY2(shown.endsWith("\r\033[K"), shown);
    QVERIFY(tool.read("top.fcf").endsWith("more"));
}

void TerminalTest::showsNothingOfAnInputThatIsThereAtOnce()
{
    ToolFixture tool;
    QCOMPARE(feedSlowly(&tool, 0), QByteArray());
}

void TerminalTest::showsNothingWhenItIsToBeQuiet()
{
    ToolFixture tool;
    QCOMPARE(feedSlowly(&tool, 1500, {"--quiet"}), QByteArray());
}

QTEST_GUILESS_MAIN(TerminalTest)
#include "TerminalTest.moc"
