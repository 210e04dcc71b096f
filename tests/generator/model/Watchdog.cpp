#include "generator/model/Watchdog.h"

#include <csignal>
#include <cstring>
#include <unistd.h>

namespace {

/// Of one step, also with sanitizers on a busy machine.
const unsigned LongestStepSeconds = 30;

const int Signals[] = {SIGABRT, SIGALRM, SIGBUS, SIGFPE, SIGILL, SIGSEGV};

char theSteps[64 * 1024];

void print(const char* text)
{
    const ssize_t written = ::write(STDERR_FILENO, text, std::strlen(text));
    (void)written;
}

extern "C" void printSteps(int signal)
{
    print(signal == SIGALRM ? "A step takes too long, the last of:\n"
                            : "The program crashes in the last step of:\n");
    print(theSteps);
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

} // namespace

Watchdog::Watchdog(const QVector<Step>& steps, int current)
{
    const QByteArray text = printed(steps.mid(0, current + 1)).right(sizeof theSteps - 1);
    std::memcpy(theSteps, text.constData(), static_cast<std::size_t>(text.size()) + 1);
    for (int signal : Signals)
        std::signal(signal, printSteps);
    ::alarm(LongestStepSeconds);
}

Watchdog::~Watchdog() { ::alarm(0); }
