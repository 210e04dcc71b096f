#include "tool/base/Result.h"
#include "tool/commands/CommandLine.h"
#include "tool/console/Environment.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTextCodec>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// Opens something unusable in place of standard streams that are closed. Otherwise a file of the
/// run would get the number of the stream, and with it what is meant for the stream.
void fillClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

} // namespace

int main(int argc, char** argv)
{
    fillClosedStreams();
    // A full disk and a reader that went away are errors of a write, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);

    const QCoreApplication application(argc, argv);

    QFile in;
    QFile out;
    QFile err;
    if (!in.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        !out.open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !err.open(STDERR_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered))
        return static_cast<int>(ExitCode::CannotAccess);

    QElapsedTimer timer;
    timer.start();

    Environment environment;
    environment.in = &in;
    environment.out = &out;
    environment.err = &err;
    environment.outIsTerminal = ::isatty(STDOUT_FILENO) == 1;
    environment.errIsTerminal = ::isatty(STDERR_FILENO) == 1;
    environment.milliseconds = [&timer] { return timer.elapsed(); };
    if (qEnvironmentVariableIsSet("SOURCE_DATE_EPOCH"))
        environment.sourceDateEpoch = qgetenv("SOURCE_DATE_EPOCH");
    environment.codec = QTextCodec::codecForLocale();

    return runCommandLine(std::vector<std::string>(argv + 1, argv + argc), environment);
}
