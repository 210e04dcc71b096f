#include "tool/files/TemporaryFile.h"

#include <cerrno>
#include <climits>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
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

/// Returns false if it is too long, or if there are too many.
bool remember(const QByteArray& path)
{
    for (char* const name : names) {
        if (*name != '\0' || path.size() >= PATH_MAX)
            continue;
        // Its first byte last, as a signal may come at any moment.
        std::memcpy(name + 1, path.constData() + 1, static_cast<std::size_t>(path.size()));
        *name = path.at(0);
        return true;
    }
    return false;
}

int openNamed(const QByteArray& folder, mode_t mode, QByteArray* name)
{
    const SignalBlock block;
    QByteArray path = folder + "/.pelk-fcf-XXXXXX";
    const int descriptor = ::mkostemp(path.data(), O_CLOEXEC);
    if (descriptor < 0)
        return -1;
    const mode_t masked = ::umask(0);
    ::umask(masked);
    if (!remember(path) || ::fchmod(descriptor, mode & ~masked) != 0) {
        const int error = errno;
        ::unlink(path.constData());
        ::close(descriptor);
        errno = error;
        return -1;
    }
    handleSignals();
    *name = path.mid(folder.size() + 1);
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
