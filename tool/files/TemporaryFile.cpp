#include "tool/files/TemporaryFile.h"

#include <QString>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int Signals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

/// A signal handler can use no more than this: an image, a companion and a digest.
constexpr int MaximumNames = 3;
char names[MaximumNames][PATH_MAX];

extern "C" void removeNames(int signal)
{
    for (const char* const name : names) {
        if (*name != '\0')
            ::unlink(name);
    }
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

void handleSignals()
{
    for (const int signal : Signals) {
        struct sigaction action = {};
        ::sigaction(signal, nullptr, &action);
        // One that is ignored, as under nohup, stays so.
        if (action.sa_handler != SIG_DFL)
            continue;
        action.sa_handler = &removeNames;
        ::sigaction(signal, &action, nullptr);
    }
}

void remember(const QByteArray& path)
{
    char(*const free)[PATH_MAX] = std::find_if(std::begin(names), std::end(names),
                                               [](const auto& name) { return *name == '\0'; });
    if (free != std::end(names) && path.size() < PATH_MAX)
        std::memcpy(*free, path.constData(), static_cast<std::size_t>(path.size()) + 1);
}

int openNamed(const QByteArray& folder, mode_t mode, QByteArray* name)
{
    const SignalBlock block;
    QByteArray path;
    int descriptor = -1;
    for (int number = 0; descriptor < 0; ++number) {
        *name = QStringLiteral(".pelk-fcf-%1-%2").arg(::getpid()).arg(number).toLatin1();
        path = folder + '/' + *name;
        descriptor = ::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor < 0 && errno != EEXIST)
            return -1;
    }
    remember(path);
    handleSignals();
    return descriptor;
}

} // namespace

int TemporaryFile::open(const QByteArray& folder, mode_t mode, QByteArray* name)
{
    name->clear();
    // A file gets its name by way of /proc.
    const bool canBeNamed = ::access("/proc/self/fd", X_OK) == 0;
    const int descriptor =
        canBeNamed ? ::open(folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode) : -1;
    const bool isUnknown = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL;
    return descriptor >= 0 || (canBeNamed && !isUnknown) ? descriptor
                                                         : openNamed(folder, mode, name);
}

void TemporaryFile::forget(const QByteArray& folder, const QByteArray& name)
{
    const QByteArray path = folder + '/' + name;
    for (char* const known : names) {
        if (path == known)
            *known = '\0';
    }
}

SignalBlock::SignalBlock()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    for (const int signal : Signals)
        sigaddset(&blocked, signal);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &m_before);
}

SignalBlock::~SignalBlock() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
